#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "tools/sample/sample_store.h"

namespace dg::test {

/// An example store's bytes, read without the engine: for checks that must not share its faults.
class RawStore {
 public:
  explicit RawStore(const std::vector<SampleFile>& files);

  /// A record of a logical file, as it lies in its data file; empty beyond the capacity.
  std::string record(const std::string& name, std::int32_t number) const;
  std::int32_t lastRecord(const std::string& name) const { return files_.at(name).lastRecord; }
  /// The entries of an index from its first leaf to its last: key and record.
  std::vector<std::pair<std::string, std::int32_t>> entries(const std::string& index) const;
  const std::string& controlFile() const { return file("FILE0"); }
  /// A plain file by its name, or a data file; empty when it is not there.
  const std::string& file(const std::string& name) const;
  bool has(const std::string& name) const { return contents_.contains(name); }

 private:
  struct LogicalFile {
    std::string data;  ///< from the start block on
    std::int32_t length = 0;
    std::int32_t lastRecord = 0;
  };
  std::map<std::string, std::string> contents_;  // of all files, by name
  std::map<std::string, LogicalFile> files_;
};

/// A big-endian number of `width` bytes at a 1-based position.
std::int64_t unsignedAt(const std::string& bytes, std::size_t position, std::size_t width);
std::int64_t signedAt(const std::string& bytes, std::size_t position, std::size_t width);

}  // namespace dg::test
