#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace dg {

/// A value from a private profile text. Section and key names are compared without regard to case;
/// blanks around names and values go, one pair of quotes around a value goes, a line that begins
/// with ";" is a comment; the first section and the first key of a name win. Nothing when absent.
std::optional<std::string> iniValue(std::string_view content, std::string_view section,
                                    std::string_view key);

/// `content` with the key set: the line is replaced in place, or added at the end of its section,
/// or with a new section at the end. All other lines stay as they are.
std::string withIniValue(std::string_view content, std::string_view section, std::string_view key,
                         std::string_view value);

/// As the platform's call of the same name with a buffer of `size` bytes: at most size - 1 bytes of
/// the value; the empty text when the file, the section or the key is absent.
std::string GetPrivateProfileString(const std::string& section, const std::string& key,
                                    std::size_t size, const std::string& path);

}  // namespace dg
