#include "records/record_table.h"

#include <algorithm>

#include "engine/text_utilities.h"

namespace dg {

void putTextField(std::string& record, int position, int width, std::string_view text, char fill) {
  const auto start = static_cast<std::size_t>(position) - 1;
  if (position < 1 || start >= record.size()) throw RunTimeError(kInvalidProcedureCall);
  std::string field(text.substr(0, static_cast<std::size_t>(width)));
  field.resize(static_cast<std::size_t>(width), fill);
  const std::size_t count = std::min(field.size(), record.size() - start);
  record.replace(start, count, field, 0, count);
}

namespace {

constexpr std::size_t kDashMaskCharacters = 3;

}  // namespace

std::string readDashedText(std::string_view bytes, int digits) {
  const std::string decoded = unpackText(bytes);
  std::size_t width = static_cast<std::size_t>(digits);
  if (width == 0) {
    if (decoded.size() < kDashMaskCharacters) return decoded;
    width = decoded.size() - kDashMaskCharacters;
  }
  std::string number = decoded.substr(0, width);
  InsertDashes(number, middle(decoded, width + 1, kDashMaskCharacters));
  return number;
}

void putDashedText(std::string& record, int position, int width, std::string number) {
  std::string mask;
  StripDashes(number, mask);
  number.resize(static_cast<std::size_t>(width) / 2 * 3 - kDashMaskCharacters, ' ');
  mask.resize(kDashMaskCharacters, ' ');
  putTextField(record, position, width, packText(number + mask), '\0');
}

std::string formText(Encoding encoding, char opcode, int scaleOrBit) {
  const std::string letter(1, opcode);
  switch (encoding) {
    case Encoding::kInteger:
      return scaleOrBit == 1 ? letter : letter + " / " + std::to_string(scaleOrBit);
    case Encoding::kRawText:
      return "raw text";
    case Encoding::kPackedText:
      return "packed text";
    case Encoding::kDashedText:
      return "packed text with dash mask";
    case Encoding::kDate:
      return "date " + letter;
    case Encoding::kBit:
      return letter + ", bit " + std::to_string(scaleOrBit);
    case Encoding::kCharacter:
      return "character " + std::to_string(scaleOrBit + 1) + " of packed text";
    case Encoding::kRule:
      return "rule of the class";
    case Encoding::kMaskHead:
    case Encoding::kMember:
      break;
  }
  return {};
}

}  // namespace dg
