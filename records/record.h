#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "platform/values/currency.h"
#include "platform/values/date.h"

namespace dg {

/// One member of a record class with its value, for tools that show any record.
struct MemberValue {
  using Scalar = std::variant<std::int32_t, Currency, Date, std::string>;
  std::string name;
  std::variant<Scalar, std::vector<Scalar>> value;
};

/// A row of a class's format, for people: where in the record a member is and in which form.
struct FieldPlace {
  std::string layout;  ///< which of several layouts of the class; empty where there is one
  int position = 0;    ///< counts from 1
  int width = 0;       ///< in bytes
  std::string form;    ///< "L", "L / 100", "packed text", "B, bit 3", ...
  std::string member;  ///< with its index where it is an element
  bool reads = true;
  bool writes = true;
};

/// What all record classes share: members filled from a record's bytes and written back to them.
///
/// The record a class unpacks is the main record and, where the file has one, the extension record
/// of the same number behind it. An instance holds the last record unpacked. Of a field that the
/// next record does not reach, a number keeps its value, a text becomes the bytes there are, and a
/// date the empty date.
class Record {
 public:
  virtual ~Record() = default;
  /// Fills the members from the record's bytes. An error in a field leaves that member alone and
  /// does not end the reading.
  virtual void Unpack(const std::string& record) = 0;
  /// Writes the members back into a string that is long enough; what does not fit is left out.
  virtual void Pack(std::string& record) const = 0;
  /// The members in the class's order.
  virtual std::vector<MemberValue> members() const = 0;
  /// The class's format, row by row in the order of reading. docs/records.md is made of it.
  virtual std::vector<FieldPlace> places() const = 0;

 protected:
  Record() = default;
  Record(const Record&) = default;
  Record& operator=(const Record&) = default;
};

}  // namespace dg
