#include "tools/sample/record_writer.h"

#include "engine/codec.h"
#include "engine/state.h"
#include "platform/values/run_time_error.h"

namespace dg::sample {

namespace {

bool isSigned(char opcode) {
  return opcode == 'I' || opcode == 'J' || opcode == 'K' || opcode == 'L';
}

bool fits(std::int64_t value, char opcode) {
  const std::int64_t count = std::int64_t{1} << (8 * opcodeWidth(opcode));
  const std::int64_t lowest = isSigned(opcode) ? -count / 2 : 0;
  return value >= lowest && value < lowest + count;
}

/// Sets the head of the packed-text table for the life of this object.
class MaskHead {
 public:
  explicit MaskHead(std::string_view head) : former_(MaskTable.substr(0, head.size())) {
    setMaskHead(head);
  }
  ~MaskHead() { setMaskHead(former_); }
  MaskHead(const MaskHead&) = delete;
  MaskHead& operator=(const MaskHead&) = delete;

 private:
  std::string former_;
};

std::int32_t dateNumber(char opcode, Date value) {
  if (value == kEmptyDate) return 0;
  const std::int32_t monthDay = value.month() * 100 + value.day();
  const std::int32_t year = value.year() % 100;
  switch (opcode) {
    case 'D':
    case 'K':
      return monthDay * 100 + year;
    case 'R':
      return year * 10000 + monthDay;
    default:
      return value.days() - kDayZero.days();
  }
}

}  // namespace

void RecordWriter::requireRoom(int position, int width) const {
  const bool inside =
      position >= 1 && width >= 0 &&
      static_cast<std::size_t>(position) + static_cast<std::size_t>(width) - 1 <= bytes_.size();
  if (!inside) throw RunTimeError(31, "RecordWriter", "The field lies outside the record");
}

RecordWriter& RecordWriter::integer(int position, char opcode, std::int64_t value) {
  requireRoom(position, opcodeWidth(opcode));
  if (!fits(value, opcode)) throw RunTimeError(kOverflow);
  Pack(opcode, bytes_, static_cast<std::int32_t>(value), position);
  return *this;
}

RecordWriter& RecordWriter::bit(int position, char opcode, int bitNumber) {
  requireRoom(position, opcodeWidth(opcode));
  return integer(position, opcode, Unpack(opcode, bytes_, position) | (1 << bitNumber));
}

RecordWriter& RecordWriter::raw(int position, int width, std::string_view text) {
  requireRoom(position, width);
  std::string field(text.substr(0, static_cast<std::size_t>(width)));
  field.resize(static_cast<std::size_t>(width), ' ');
  bytes_.replace(static_cast<std::size_t>(position) - 1, field.size(), field);
  return *this;
}

RecordWriter& RecordWriter::packed(int position, int width, std::string_view text,
                                   std::string_view head) {
  requireRoom(position, width);
  const MaskHead inForce(head);
  std::string field = packText(text);
  field.resize(static_cast<std::size_t>(width), '\0');
  bytes_.replace(static_cast<std::size_t>(position) - 1, field.size(), field);
  return *this;
}

RecordWriter& RecordWriter::date(int position, char opcode, Date value) {
  const bool dayNumber = opcode == 'C' || opcode == 'J';
  return integer(position, dayNumber ? 'C' : 'D', dateNumber(opcode, value));
}

}  // namespace dg::sample
