#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "tools/sample/record_writer.h"
#include "tools/sample/store_builder.h"

namespace dg::test {

/// A product line's record of the usual length with its number and code; the rest is 0.
inline sample::RecordWriter lineRecord(std::int32_t number, const std::string& alpha) {
  sample::RecordWriter record(192);
  record.integer(1, 'J', 1).integer(3, 'C', number).packed(5, 2, alpha);
  return record;
}

/// Adds a line to LINEL and under its number to LINEI; returns the record number.
inline std::int32_t addLine(sample::StoreBuilder& store, const sample::RecordWriter& record) {
  const std::int32_t number = store.extended("LINEL", "ELINEL").add(record.bytes());
  store.index("LINEI").add(record.bytes().substr(2, 2), number);
  return number;
}

/// Adds a line with a name and a type: "U" for one of units.
inline void addLine(sample::StoreBuilder& store, std::int32_t number, std::string_view name,
                    std::string_view type) {
  addLine(store, lineRecord(number, "").packed(7, 20, name).raw(142, 1, type));
}

}  // namespace dg::test
