#pragma once

#include <string>
#include <string_view>

namespace dg {

/// Without leading and trailing blanks (character 32 only), as the run-time's trims do it.
std::string_view trimLeft(std::string_view text);
std::string_view trimRight(std::string_view text);
std::string_view trim(std::string_view text);

/// With blanks behind, or in front, up to a width in bytes; a longer text stays as it is.
std::string padRight(std::string text, std::size_t width);
std::string padLeft(std::string text, std::size_t width);

/// A record's text as it is shown: without its trailing blanks and NULs. Leading blanks stay.
std::string_view shown(std::string_view text);

/// Case folding of Windows-1252 bytes, letters above 127 included.
std::string upperCase(std::string_view text);
std::string lowerCase(std::string_view text);
bool equalIgnoringCase(std::string_view a, std::string_view b);

/// Up to `width` bytes of `text` from the 1-based `position`: the bytes there are, perhaps none.
std::string_view middle(std::string_view text, std::size_t position,
                        std::size_t width = std::string_view::npos);

/// Record bytes are Windows-1252; these turn them into UTF-8 and back. The five bytes that the
/// code page leaves undefined become the control characters of the same number. A character
/// outside the code page becomes "?".
std::string utf8FromBytes(std::string_view bytes);
std::string bytesFromUtf8(std::string_view text);

/// `text` with every control character (below 32, and 127) replaced by a blank, for terminals and
/// logs. Line feeds and carriage returns too.
std::string withoutControls(std::string_view text);

}  // namespace dg
