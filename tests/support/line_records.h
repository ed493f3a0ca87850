#pragma once

#include <cstdint>
#include <string>

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

}  // namespace dg::test
