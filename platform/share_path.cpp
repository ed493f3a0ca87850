#include "platform/share_path.h"

#include <algorithm>

#include "platform/text.h"

namespace dg {

namespace {

constexpr bool isReserved(char c) {
  return c == '/' || c == ':' || c == '*' || c == '?' || c == '"' || c == '<' || c == '>' ||
         c == '|';
}

constexpr std::string_view kDevices[] = {"CON", "PRN", "AUX", "NUL", "CONIN$", "CONOUT$", "CLOCK$"};

/// Ports have a digit behind their name; the superscript digits of the code page count as digits.
constexpr std::string_view kPorts[] = {"COM", "LPT"};
constexpr std::string_view kPortDigits = "0123456789\xB9\xB2\xB3";

/// A device's name stays one with an ending or blanks behind it.
bool isDevice(std::string_view name) {
  const std::string_view stem = trimRight(name.substr(0, name.find('.')));
  for (const std::string_view device : kDevices) {
    if (equalIgnoringCase(stem, device)) return true;
  }
  for (const std::string_view port : kPorts) {
    if (stem.size() == port.size() + 1 && equalIgnoringCase(stem.substr(0, port.size()), port) &&
        kPortDigits.find(stem.back()) != std::string_view::npos) {
      return true;
    }
  }
  return false;
}

bool canStandOnShare(std::string_view name) {
  if (name.find_first_not_of(". ") == std::string_view::npos) return false;
  const bool plain = std::all_of(name.begin(), name.end(), [](char c) {
    return static_cast<unsigned char>(c) >= 32 && !isReserved(c);
  });
  return plain && !isDevice(name);
}

}  // namespace

bool isShareName(std::string_view name) {
  return canStandOnShare(name) && name.find('\\') == std::string_view::npos;
}

bool isSharePath(std::string_view path) {
  return path.substr(0, 2) == "\\\\";
}

std::optional<std::vector<std::string>> sharePathNames(std::string_view path) {
  if (!isSharePath(path)) return std::nullopt;
  std::vector<std::string> names;
  std::size_t begin = 2;
  while (begin <= path.size()) {
    const std::size_t end = std::min(path.find('\\', begin), path.size());
    const std::string_view name = path.substr(begin, end - begin);
    begin = end + 1;
    const bool mayBeMissing = names.size() >= 2;
    if (name.empty() && mayBeMissing) continue;
    if (!canStandOnShare(name)) return std::nullopt;
    names.emplace_back(name);
  }
  if (names.size() < 2) return std::nullopt;
  return names;
}

}  // namespace dg
