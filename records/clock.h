#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "records/record.h"

namespace dg {

/// A time clock record, of two kinds with a layout each. No view shows it; any other kind reads
/// nothing but the kind.
class clsClock final : public Record {
 public:
  void Unpack(const std::string& record) override;
  void Pack(std::string& record) const override;
  std::vector<MemberValue> members() const override;
  std::vector<FieldPlace> places() const override;

  std::int32_t Kind = 0;  ///< 1 a clocked time, 2 a clocked text
  std::int32_t Field3 = 0;
  Date enteredDate;
  std::int32_t enteredTime = 0;
  Date actualDate;
  std::int32_t actualTime = 0;
  std::string InOut;
  std::int32_t bitsw = 0;
  std::int32_t reference = 0;
  std::int32_t segment = 0;
  std::int32_t Field32 = 0;
  std::string Text9;
  std::string Text11;
  std::int32_t Field23 = 0;
};

}  // namespace dg
