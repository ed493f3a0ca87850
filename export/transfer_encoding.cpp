#include "export/transfer_encoding.h"

#include <algorithm>
#include <cstdint>

#include "platform/text.h"

namespace dg {

namespace {

constexpr std::size_t kLine = 76;
constexpr std::size_t kPlainHeader = 60;
/// Bytes of text in an encoded word: 52 characters in base64, so that the first one has room behind
/// the header's name.
constexpr std::size_t kWordBytes = 39;
constexpr std::string_view kHex = "0123456789ABCDEF";
constexpr std::string_view kBase64 =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

std::string base64(std::string_view bytes) {
  std::string out;
  for (std::size_t i = 0; i < bytes.size(); i += 3) {
    std::uint32_t group = 0;
    for (std::size_t j = 0; j < 3; ++j)
      group = group << 8U | (i + j < bytes.size() ? static_cast<unsigned char>(bytes[i + j]) : 0U);
    for (std::size_t j = 0; j < 4; ++j) {
      const bool padding = i + j > bytes.size();
      out += padding ? '=' : kBase64[group >> (18U - 6U * static_cast<std::uint32_t>(j)) & 63U];
    }
  }
  return out;
}

bool isPlain(std::string_view text) {
  return std::ranges::all_of(text, [](char c) { return c >= ' ' && c < '\x7F'; });
}

bool isContinuation(char c) {
  return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

std::string encodedWords(std::string_view text) {
  std::string out;
  while (!text.empty()) {
    std::size_t length = std::min(kWordBytes, text.size());
    while (length > 1 && length < text.size() && isContinuation(text[length]))
      --length;
    out += (out.empty() ? "=?UTF-8?B?" : "\r\n =?UTF-8?B?") + base64(text.substr(0, length)) + "?=";
    text.remove_prefix(length);
  }
  return out;
}

std::string escaped(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return {'=', kHex[byte >> 4U], kHex[byte & 15U]};
}

/// One line without its end.
void appendQuotedLine(std::string& out, std::string_view line) {
  std::size_t length = 0;
  for (std::size_t i = 0; i < line.size(); ++i) {
    const char c = line[i];
    const bool last = i + 1 == line.size();
    const bool blank = c == ' ' || c == '\t';
    const bool literal = (c > ' ' && c < '\x7F' && c != '=') || (blank && !last);
    const std::size_t room = kLine - (last ? 0 : 1);
    if (length + (literal ? 1 : 3) > room) {
      out += "=\r\n";
      length = 0;
    }
    // Programs on the way take these at the beginning of a line for something else.
    const bool risky = length == 0 && (c == '.' || line.substr(i, 5) == "From ");
    const std::string piece = literal && !risky ? std::string(1, c) : escaped(c);
    out += piece;
    length += piece.size();
  }
}

}  // namespace

std::string quotedPrintable(std::string_view utf8) {
  std::string out;
  while (!utf8.empty()) {
    const std::size_t end = std::min(utf8.find('\n'), utf8.size());
    appendQuotedLine(out, utf8.substr(0, end));
    out += "\r\n";
    utf8.remove_prefix(std::min(end + 1, utf8.size()));
  }
  return out;
}

std::string base64Lines(std::string_view bytes) {
  constexpr std::size_t kLineBytes = kLine / 4 * 3;
  std::string out;
  for (; !bytes.empty(); bytes.remove_prefix(std::min(kLineBytes, bytes.size())))
    out += base64(bytes.substr(0, kLineBytes)) + "\r\n";
  return out;
}

std::string headerText(std::string_view utf8) {
  const std::string text = withoutControls(utf8);
  const std::string_view bare = trim(text);
  const bool plain = isPlain(bare) && bare.size() <= kPlainHeader && bare.find("=?") == bare.npos;
  return plain ? std::string(bare) : encodedWords(bare);
}

std::string headerPhrase(std::string_view utf8) {
  const std::string text = withoutControls(utf8);
  const std::string_view bare = trim(text);
  if (!isPlain(bare) || bare.size() > kPlainHeader || bare.find("=?") != bare.npos)
    return encodedWords(bare);
  std::string quoted = "\"";
  for (const char c : bare) {
    if (c == '"' || c == '\\') quoted += '\\';
    quoted += c;
  }
  return quoted + '"';
}

}  // namespace dg
