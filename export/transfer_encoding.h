#pragma once

#include <string>
#include <string_view>

namespace dg {

/// Text as RFC 2045 has it: lines of at most 76 characters, CR LF at the ends that were line feeds,
/// all but plain ASCII as "=XX". No line begins with a dot or with "From ".
std::string quotedPrintable(std::string_view utf8);

/// Bytes in base64, lines of 76 characters.
std::string base64Lines(std::string_view bytes);

/// The value of a header of free text: as it stands where that is short plain ASCII, else encoded
/// words (RFC 2047), one a line. Control characters become blanks.
std::string headerText(std::string_view utf8);

/// A name in front of an address: quoted, or encoded words as above.
std::string headerPhrase(std::string_view utf8);

}  // namespace dg
