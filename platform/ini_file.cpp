#include "platform/ini_file.h"

#include <algorithm>

#include "platform/text.h"
#include "platform/text_file.h"
#include "platform/values/run_time_error.h"

namespace dg {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kBlanks = " \t";

std::string_view withoutBlanks(std::string_view text) {
  const std::size_t begin = text.find_first_not_of(kBlanks);
  if (begin == std::string_view::npos) return {};
  return text.substr(begin, text.find_last_not_of(kBlanks) - begin + 1);
}

enum class LineKind { kOther, kSection, kKey };

struct Line {
  std::size_t begin = 0;  ///< offset of its first byte in the content
  std::size_t end = 0;    ///< offset behind its text, where its line end begins
  std::size_t next = 0;   ///< offset of the next line
  LineKind kind = LineKind::kOther;
  std::string_view name;   ///< of the section or the key
  std::string_view value;  ///< behind the "=", as it is written
};

/// The line that begins at an offset of the content, which is not its end.
Line lineAt(std::string_view content, std::size_t begin) {
  Line line;
  line.begin = begin;
  const std::size_t feed = content.find('\n', begin);
  line.end = std::min(feed, content.size());
  line.next = feed == std::string_view::npos ? content.size() : feed + 1;
  if (line.end > begin && content[line.end - 1] == '\r') --line.end;

  const std::string_view text = withoutBlanks(content.substr(begin, line.end - begin));
  if (text.empty() || text.front() == ';') return line;
  if (text.front() == '[') {
    const std::size_t close = text.find(']');
    if (close == std::string_view::npos) return line;
    line.kind = LineKind::kSection;
    line.name = withoutBlanks(text.substr(1, close - 1));
    return line;
  }
  const std::size_t equals = text.find('=');
  if (equals == std::string_view::npos) return line;
  line.kind = LineKind::kKey;
  line.name = withoutBlanks(text.substr(0, equals));
  line.value = withoutBlanks(text.substr(equals + 1));
  return line;
}

std::size_t contentBegin(std::string_view content) {
  return content.substr(0, kByteOrderMark.size()) == kByteOrderMark ? kByteOrderMark.size() : 0;
}

std::string_view withoutQuotes(std::string_view value) {
  const bool quoted = value.size() >= 2 && value.front() == value.back() &&
                      (value.front() == '"' || value.front() == '\'');
  return quoted ? value.substr(1, value.size() - 2) : value;
}

/// What was found of a key: its line, and where its section begins and may be added to.
struct Place {
  bool hasSection = false;
  bool hasKey = false;
  Line key;
  std::size_t sectionEnd = 0;  ///< behind the section's last line that is not empty
};

Place findKey(std::string_view content, std::string_view section, std::string_view key) {
  Place place;
  for (std::size_t offset = contentBegin(content); offset < content.size();) {
    const Line line = lineAt(content, offset);
    offset = line.next;
    if (line.kind == LineKind::kSection) {
      if (place.hasSection) break;
      place.hasSection = equalIgnoringCase(line.name, section);
    }
    if (!place.hasSection) continue;
    if (!withoutBlanks(content.substr(line.begin, line.end - line.begin)).empty()) {
      place.sectionEnd = line.next;
    }
    if (line.kind == LineKind::kKey && equalIgnoringCase(line.name, key)) {
      place.hasKey = true;
      place.key = line;
      break;
    }
  }
  return place;
}

bool hasLineEnd(std::string_view text) {
  return text.find_first_of(std::string_view("\r\n\0", 3)) != std::string_view::npos;
}

/// A value whose outer blanks or quotes would be taken off in reading gets quotes of its own.
std::string written(std::string_view value) {
  const bool plain =
      withoutBlanks(value).size() == value.size() && withoutQuotes(value).size() == value.size();
  return plain ? std::string(value) : "\"" + std::string(value) + "\"";
}

}  // namespace

std::optional<std::string> iniValue(std::string_view content, std::string_view section,
                                    std::string_view key) {
  const Place place = findKey(content, withoutBlanks(section), withoutBlanks(key));
  if (!place.hasKey) return std::nullopt;
  return std::string(withoutQuotes(place.key.value));
}

std::string withIniValue(std::string_view content, std::string_view section, std::string_view key,
                         std::string_view value) {
  section = withoutBlanks(section);
  key = withoutBlanks(key);
  const bool writable = !hasLineEnd(section) && section.find(']') == std::string_view::npos &&
                        !key.empty() && !hasLineEnd(key) && key.front() != ';' &&
                        key.front() != '[' && key.find('=') == std::string_view::npos &&
                        !hasLineEnd(value);
  if (!writable) throw RunTimeError(kInvalidProcedureCall);

  const Place place = findKey(content, section, key);
  std::string result(content);
  if (place.hasKey) {
    const std::size_t begin = content.find('=', place.key.begin) + 1;
    result.replace(begin, place.key.end - begin, written(value));
    return result;
  }

  const std::size_t firstFeed = content.find('\n');
  const bool carriageReturns =
      firstFeed != std::string_view::npos && firstFeed > 0 && content[firstFeed - 1] == '\r';
  const std::string lineEnd = carriageReturns ? "\r\n" : "\n";
  const std::size_t at = place.hasSection ? place.sectionEnd : content.size();
  std::string added;
  if (at > contentBegin(content) && content[at - 1] != '\n') added += lineEnd;
  if (!place.hasSection) added += "[" + std::string(section) + "]" + lineEnd;
  added += std::string(key) + "=" + written(value) + lineEnd;
  result.insert(at, added);
  return result;
}

std::string GetPrivateProfileString(const std::string& section, const std::string& key,
                                    std::size_t size, const std::string& path) {
  if (size == 0) return {};
  try {
    return iniValue(readWholeFile(path), section, key).value_or("").substr(0, size - 1);
  } catch (const RunTimeError&) {
    return {};
  }
}

}  // namespace dg
