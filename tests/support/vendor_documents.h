#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "tools/sample/record_writer.h"
#include "tools/sample/store_builder.h"

namespace dg::test {

/// A purchase order or return made by hand, with fields that no sound store would have.
struct Document {
  std::string name = "V00001";  ///< of the file
  std::string number = {};      ///< in its header; empty: the name
  std::int32_t vendor = 7;
  std::int32_t date = 112426;  ///< MMDDYY
  std::int32_t dropShip = 0;
  std::int32_t total = 0;  ///< cents
  std::vector<std::string> comments = {};
  std::vector<std::string> lines = {};  ///< records, as documentLine makes them

  std::string bytes() const {
    using sample::RecordWriter;
    constexpr int kLength = 38;
    std::string file(kLength, '\0');
    file += RecordWriter(kLength)
                .raw(3, 8, number.empty() ? name : number)
                .integer(11, 'C', vendor)
                .integer(13, 'D', date)
                .integer(17, 'L', dropShip)
                .bytes();
    for (std::size_t i = 0; i < 4; ++i)
      file += RecordWriter(kLength).packed(3, 35, i < comments.size() ? comments[i] : "").bytes();
    file += RecordWriter(kLength).integer(22, 'L', total).bytes();
    for (const std::string& line : lines)
      file += line;
    return file;
  }
};

/// A line of a document; `partKey` is 14 bytes of line code and part number.
inline std::string documentLine(std::int32_t kind, const std::string& partKey,
                                std::int32_t quantity, std::int32_t cost) {
  return sample::RecordWriter(38)
      .integer(1, 'J', kind)
      .raw(3, 14, partKey)
      .integer(18, 'K', quantity)
      .integer(33, 'D', cost)
      .bytes();
}

/// The key of a document's entry in PUTBI or RTTBI.
inline std::string documentKey(const std::string& name, std::int32_t status) {
  return sample::RecordWriter(16)
      .raw(1, static_cast<int>(name.size()), name)
      .integer(16, 'B', status)
      .bytes();
}

/// Adds a vendor to VNDRL and VNDRI.
inline void addVendor(sample::StoreBuilder& store, std::int32_t vendor, const std::string& name) {
  const std::int32_t record =
      store.records("VNDRL").add(sample::RecordWriter(64).packed(6, 20, name).bytes());
  store.index("VNDRI").add(sample::integerKey('L', vendor, 4), record);
}

}  // namespace dg::test
