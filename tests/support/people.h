#pragma once

#include <cstdint>
#include <string_view>

#include "tools/sample/record_writer.h"
#include "tools/sample/store_builder.h"

namespace dg::test {

/// A customer's record, main file and extension as one, without anything but account and name.
inline sample::RecordWriter customerRecord(std::int32_t account, std::string_view name) {
  sample::RecordWriter record(300);
  record.integer(1, 'J', 1).integer(3, 'D', account).packed(6, 20, name, " ,-.");
  return record;
}

inline void addCustomer(sample::StoreBuilder& builder, std::int32_t account,
                        const sample::RecordWriter& record) {
  const std::int32_t number = builder.extended("CUSTL", "ECUSTL").add(record.bytes());
  builder.index("CUSTI").add(sample::integerKey('L', account, 4), number);
}
inline void addCustomer(sample::StoreBuilder& builder, std::int32_t account,
                        std::string_view name) {
  addCustomer(builder, account, customerRecord(account, name));
}

inline void addCounterman(sample::StoreBuilder& builder, std::int32_t number,
                          std::string_view name) {
  sample::RecordWriter record(404);
  record.integer(1, 'J', 1).integer(3, 'C', number).packed(7, 20, name);
  const std::int32_t at = builder.extended("MANL", "EMANL").add(record.bytes());
  builder.index("MANI").add(sample::integerKey('C', number, 2), at);
}

}  // namespace dg::test
