#include "engine/text_utilities.h"

#include <algorithm>

#include "engine/state.h"
#include "platform/text.h"
#include "platform/values/convert.h"
#include "platform/values/run_time_error.h"

namespace dg {

namespace {

constexpr std::string_view kStateList =
    "AL.AK.AR.AZ.CA.CO.CT.DC.DE.FL.GA.HI.IA.ID.IL.IN.KS.KY.LA.MA.MD.ME.MI.MN.MO.MS.MT.NC.ND.NE.NH."
    "NJ.NM.NV.NY.OH.OK.OR.PA.RI.SC.SD.TN.TX.UT.VA.VT.WA.WI.WV.WY.PR.CN.";

/// One character for each position in a part number, in order.
constexpr std::string_view kDashPositions = "123456789ABCDEFGHIJKL";
/// Positions that a dash can be put back to; stripping can name more.
constexpr std::size_t kInsertablePositions = 18;

/// Not the table in force: a part number keeps its letters and digits under every head.
constexpr std::string_view kPartAlphabet = kDefaultMaskTable;

constexpr std::size_t kAddressLines = 4;
constexpr std::size_t kAddressLineSize = 30;

/// Blanks what is no address (comment lines, punctuation) and returns the words that are left.
std::vector<std::string> addressWords(std::string& address) {
  for (std::size_t line = 0; line < kAddressLines; ++line) {
    const std::size_t start = line * kAddressLineSize;
    if (start >= address.size()) break;
    if (address[start] != '.') continue;
    const std::size_t end = std::min(start + kAddressLineSize, address.size());
    std::fill(address.begin() + static_cast<std::ptrdiff_t>(start),
              address.begin() + static_cast<std::ptrdiff_t>(end), ' ');
  }
  std::replace_if(
      address.begin(), address.end(), [](char c) { return c == ',' || c == '.'; }, ' ');
  return Split(address, " ");
}

bool isState(const std::string& word) {
  // Any piece of the list passes, a single letter too: the suite's addresses are read so.
  return kStateList.find(word) != std::string_view::npos;
}

bool isZip(const std::string& word) {
  if (word.size() == 5 || word.size() == 9) return IsNumeric(word);
  return word.size() == 10 && word[5] == '-' && IsNumeric(word.substr(0, 5) + word.substr(6));
}

std::string lastWord(std::string& address, bool (*passes)(const std::string&)) {
  std::vector<std::string> words = addressWords(address);
  const auto found = std::find_if(words.rbegin(), words.rend(), passes);
  return found == words.rend() ? std::string() : std::move(*found);
}

}  // namespace

std::string Trun(std::string_view Source, bool flgRemoveControlCharacters) {
  constexpr std::string_view kPadding("\0\t\n\r ", 5);
  if (!flgRemoveControlCharacters) return std::string(trimRight(Source));
  return std::string(Source.substr(0, Source.find_last_not_of(kPadding) + 1));
}

std::vector<std::string> Split(std::string_view Expression, std::string_view Delimiter,
                               std::int32_t Limit, Compare compare) {
  if (Limit < -1) throw RunTimeError(kInvalidProcedureCall);
  std::vector<std::string> parts;
  if (Expression.empty() || Delimiter.empty() || Limit == 0) return parts;

  // A case-insensitive search looks in folded copies; the parts come from the text itself.
  const std::string foldedText = compare == Compare::kText ? upperCase(Expression) : std::string();
  const std::string foldedDelimiter =
      compare == Compare::kText ? upperCase(Delimiter) : std::string();
  const std::string_view text = compare == Compare::kText ? foldedText : Expression;
  const std::string_view delimiter = compare == Compare::kText ? foldedDelimiter : Delimiter;

  std::size_t start = 0;
  for (std::int32_t count = 1;; ++count) {
    const std::size_t end = count == Limit ? std::string_view::npos : text.find(delimiter, start);
    const std::string_view part = Expression.substr(
        start, end == std::string_view::npos ? std::string_view::npos : end - start);
    // Only the last part of a limited split can still hold a delimiter, and then goes too: parts
    // are filtered by what they contain, not by whether they are empty.
    if (!part.empty() && part.find(Delimiter) == std::string_view::npos) parts.emplace_back(part);
    if (end == std::string_view::npos) return parts;
    start = end + delimiter.size();
  }
}

std::string AddressState(std::string& Address) {
  return lastWord(Address, &isState);
}

std::string AddressZip(std::string& Address) {
  return lastWord(Address, &isZip);
}

void InsertDashes(std::string& PartNumber, std::string_view DashMask) {
  for (const char place : trimRight(DashMask)) {
    const std::size_t before = kDashPositions.substr(0, kInsertablePositions).find(place);
    if (before == std::string_view::npos) continue;
    // The places count in the finished number, with the dashes put in so far.
    PartNumber.insert(std::min(before, PartNumber.size()), 1, '-');
  }
}

bool StripDashes(std::string& PartNumber, std::string& DashMask) {
  std::string kept;
  std::string mask;
  const std::string_view number = trim(PartNumber);
  for (std::size_t i = 0; i < number.size(); ++i) {
    const std::size_t code = kPartAlphabet.find(number[i]);
    if (code != std::string_view::npos && code > 0) {
      kept.push_back(number[i]);
    } else if (i < kDashPositions.size()) {
      mask.push_back(kDashPositions[i]);
    }
  }
  PartNumber = std::move(kept);
  DashMask = std::move(mask);
  return DashMask.size() < 4;
}

std::int16_t YesFlag(std::string_view Text) {
  return Text == "Y" ? 1 : 0;
}

std::string FlagYes(std::int16_t Flag) {
  return Flag != 0 ? "Y" : "N";
}

}  // namespace dg
