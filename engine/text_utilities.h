#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace dg {

/// Without trailing blanks; with `flgRemoveControlCharacters` also without trailing NULs, tabs,
/// line feeds and carriage returns.
std::string Trun(std::string_view Source, bool flgRemoveControlCharacters);

enum class Compare { kBinary = 0, kText = 1 };

/// The parts of a text between delimiters, without empty ones: runs of delimiters collapse. With a
/// positive limit the last part, which may still hold delimiters, goes as well when it does.
std::vector<std::string> Split(std::string_view Expression, std::string_view Delimiter,
                               std::int32_t Limit = -1, Compare compare = Compare::kBinary);

/// The state code or ZIP code in a 120-character address block (four lines of 30), or the empty
/// text. Comment lines, commas and full stops in `Address` become blanks.
std::string AddressState(std::string& Address);
std::string AddressZip(std::string& Address);

/// Puts dashes into a part number before the places that the mask names ("1" to "9", "A" to "I").
void InsertDashes(std::string& PartNumber, std::string_view DashMask);
/// The reverse: `PartNumber` keeps its letters and digits, `DashMask` gets the places of all else.
/// Whether the mask has fewer than four characters.
bool StripDashes(std::string& PartNumber, std::string& DashMask);

/// 1 if the text is exactly "Y", else 0.
std::int16_t YesFlag(std::string_view Text);
/// "Y" for a flag that is not 0, else "N".
std::string FlagYes(std::int16_t Flag);

}  // namespace dg
