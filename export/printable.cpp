#include "export/printable.h"

#include "platform/text.h"

namespace dg {

namespace {

/// The five bytes that Windows-1252 leaves undefined turn into control characters of the second
/// block, which some terminals obey just like an escape.
constexpr std::string_view kUndefinedBytes = "\x81\x8D\x8F\x90\x9D";

}  // namespace

std::string printableBytes(std::string_view bytes) {
  std::string text = withoutControls(bytes);
  for (char& c : text) {
    if (kUndefinedBytes.find(c) != std::string_view::npos) c = ' ';
  }
  return text;
}

std::string terminalText(std::string_view bytes) {
  return utf8FromBytes(printableBytes(bytes));
}

}  // namespace dg
