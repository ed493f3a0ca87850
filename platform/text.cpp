#include "platform/text.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace dg {

namespace {

// Windows-1252 from 128 to 159; from there on it is Latin-1.
constexpr std::array<char16_t, 32> kUpperControls{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr char32_t kInvalid = 0xFFFFFFFF;

char32_t characterOf(unsigned char byte) {
  return byte >= 0x80 && byte < 0xA0 ? kUpperControls[byte - 0x80U] : char32_t{byte};
}

char byteOf(char32_t character) {
  if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) {
    return static_cast<char>(character);
  }
  const auto* const found = std::find(kUpperControls.begin(), kUpperControls.end(), character);
  if (found == kUpperControls.end()) return '?';
  return static_cast<char>(0x80 + (found - kUpperControls.begin()));
}

void appendUtf8(std::string& out, char32_t character) {
  if (character < 0x80) {
    out += static_cast<char>(character);
  } else if (character < 0x800) {
    out += static_cast<char>(0xC0 | (character >> 6));
    out += static_cast<char>(0x80 | (character & 0x3F));
  } else {
    out += static_cast<char>(0xE0 | (character >> 12));
    out += static_cast<char>(0x80 | ((character >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (character & 0x3F));
  }
}

/// The character at `position`, which moves behind it. Malformed bytes give kInvalid one by one.
char32_t takeUtf8(std::string_view text, std::size_t& position) {
  const auto lead = static_cast<unsigned char>(text[position++]);
  if (lead < 0x80) return lead;
  int more = 0;
  char32_t character = 0;
  char32_t least = 0;
  if (lead >= 0xC0 && lead < 0xE0) {
    more = 1, character = lead & 0x1F, least = 0x80;
  } else if (lead >= 0xE0 && lead < 0xF0) {
    more = 2, character = lead & 0x0F, least = 0x800;
  } else if (lead >= 0xF0 && lead < 0xF8) {
    more = 3, character = lead & 0x07, least = 0x10000;
  } else {
    return kInvalid;
  }
  std::size_t end = position;
  for (; more > 0; --more, ++end) {
    if (end >= text.size() || (static_cast<unsigned char>(text[end]) & 0xC0) != 0x80) {
      return kInvalid;
    }
    character = (character << 6) | (static_cast<unsigned char>(text[end]) & 0x3F);
  }
  const bool surrogate = character >= 0xD800 && character < 0xE000;
  if (character < least || character > 0x10FFFF || surrogate) return kInvalid;
  position = end;
  return character;
}

/// What a byte becomes by folding, by its value.
using Folding = std::array<char, 256>;

struct Foldings {
  Folding upper{};
  Folding lower{};
};

constexpr Foldings foldings() {
  Foldings result;
  for (unsigned i = 0; i < 256; ++i)
    result.upper[i] = result.lower[i] = static_cast<char>(i);
  const auto pair = [&result](unsigned small, unsigned capital) {
    result.upper[small] = static_cast<char>(capital);
    result.lower[capital] = static_cast<char>(small);
  };
  constexpr unsigned kDistance = 0x20;
  for (unsigned small = 'a'; small <= 'z'; ++small)
    pair(small, small - kDistance);
  constexpr unsigned kDivisionSign = 0xF7;  // stands among the letters, and so does its counterpart
  for (unsigned small = 0xE0; small <= 0xFE; ++small) {
    if (small != kDivisionSign) pair(small, small - kDistance);
  }
  pair(0x9A, 0x8A);
  pair(0x9C, 0x8C);
  pair(0x9E, 0x8E);
  pair(0xFF, 0x9F);
  return result;
}

constexpr Foldings kFoldings = foldings();

constexpr char upperLetter(char c) {
  return kFoldings.upper[static_cast<unsigned char>(c)];
}
constexpr char lowerLetter(char c) {
  return kFoldings.lower[static_cast<unsigned char>(c)];
}

std::string_view cutRight(std::string_view text, std::string_view what) {
  return text.substr(0, text.find_last_not_of(what) + 1);
}

}  // namespace

std::string_view trimLeft(std::string_view text) {
  return text.substr(std::min(text.find_first_not_of(' '), text.size()));
}

std::string_view trimRight(std::string_view text) {
  return cutRight(text, " ");
}

std::string_view trim(std::string_view text) {
  return trimLeft(trimRight(text));
}

std::string padRight(std::string text, std::size_t width) {
  text.resize(std::max(width, text.size()), ' ');
  return text;
}

std::string padLeft(std::string text, std::size_t width) {
  if (text.size() < width) text.insert(0, width - text.size(), ' ');
  return text;
}

std::string_view shown(std::string_view text) {
  return cutRight(text, std::string_view(" \0", 2));
}

std::string upperCase(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), upperLetter);
  return result;
}

std::string lowerCase(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), lowerLetter);
  return result;
}

bool equalIgnoringCase(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return lowerLetter(x) == lowerLetter(y); });
}

std::string_view middle(std::string_view text, std::size_t position, std::size_t width) {
  if (position == 0 || position > text.size()) return {};
  return text.substr(position - 1, width);
}

std::string utf8FromBytes(std::string_view bytes) {
  std::string result;
  result.reserve(bytes.size());
  for (const char byte : bytes) {
    appendUtf8(result, characterOf(static_cast<unsigned char>(byte)));
  }
  return result;
}

std::string bytesFromUtf8(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t position = 0; position < text.size();) {
    result += byteOf(takeUtf8(text, position));
  }
  return result;
}

std::string withoutControls(std::string_view text) {
  std::string result(text);
  std::replace_if(
      result.begin(), result.end(),
      [](char c) { return static_cast<unsigned char>(c) < 32 || c == 127; }, ' ');
  return result;
}

}  // namespace dg
