#include "views/financial/recap.h"

#include <string>
#include <string_view>
#include <vector>

#include "platform/clock.h"
#include "platform/values/run_time_error.h"

namespace dg {

namespace {

struct FixedText {
  std::string_view label, text;
};

/// The captions of the table of sales and profit. Those of the lists are their figures' names.
constexpr FixedText kProfitCaptions[] = {
    {"Label1(14)", "Sales"}, {"Label1(15)", "Cost"}, {"Label1(16)", "GPR"},
    {"Label1(17)", "MTD"},   {"Label1(18)", "YTD"},  {"Label1(19)", "LYR"},
};

/// The year's three labels start with a blank, all others empty.
constexpr int kFirstYearLabel = static_cast<int>(Figure::kYearSales);
constexpr int kLastYearLabel = static_cast<int>(Figure::kYearRate);

/// A block's heading on the sheet. Its rows begin below it.
struct BlockPlace {
  RecapBlock block;
  int row, column, columnSpan;
};
constexpr BlockPlace kBlocks[] = {
    {RecapBlock::kAssets, 1, 0, 2},
    {RecapBlock::kLiabilities, 1, 2, 4},
    {RecapBlock::kProfit, 5, 2, 4},
};
/// Captions and figures of the liabilities are as wide as two columns of the table below them.
constexpr int listSpan(RecapBlock block) {
  return block == RecapBlock::kLiabilities ? 2 : 1;
}

void placeList(std::vector<Place>& sheet, const BlockPlace& place) {
  const int span = listSpan(place.block);
  int row = place.row;
  for (const RecapFigure& figure : recapFigures(place.block)) {
    ++row;
    sheet.push_back(
        {.control = figure.caption, .row = row, .column = place.column, .columnSpan = span});
    sheet.push_back(
        {.control = figure.label, .row = row, .column = place.column + span, .columnSpan = span});
  }
}

void placeProfit(std::vector<Place>& sheet, const BlockPlace& place) {
  const std::span<const RecapFigure> figures = recapFigures(RecapBlock::kProfit);
  const int head = place.row + 1;
  int position = 0;
  for (const RecapFigure& figure : figures) {
    const int row = position / kProfitColumns;
    const int column = position % kProfitColumns;
    ++position;
    const int left = place.column + 1 + column;
    if (row == 0) sheet.push_back({.control = figure.head, .row = head, .column = left});
    if (column == 0) {
      sheet.push_back({.control = figure.caption, .row = head + 1 + row, .column = place.column});
    }
    sheet.push_back({.control = figure.label, .row = head + 1 + row, .column = left});
  }
}

// Assets in the two columns on the left; liabilities above sales and profit on the right.
std::vector<Place> makeSheet() {
  std::vector<Place> sheet = {
      {.control = "lblTitle", .row = 0, .columnSpan = 3},
      {.control = "lblcompiledate", .row = 0, .column = 3, .columnSpan = 3},
  };
  for (const BlockPlace& place : kBlocks) {
    sheet.push_back({.control = recapHeading(place.block).label,
                     .row = place.row,
                     .column = place.column,
                     .columnSpan = place.columnSpan});
    place.block == RecapBlock::kProfit ? placeProfit(sheet, place) : placeList(sheet, place);
  }
  return sheet;
}

}  // namespace

frmRecap::frmRecap()
    : View("frmRecap", "System Recap"),
      lblcompiledate(
          addTitled<Label>("lblTitle", "System Recap", "lblcompiledate", "", LabelRole::kNote)),
      recap_(addLabels<kRecapLabels>("lblRecap")) {
  for (const BlockPlace& place : kBlocks) {
    const RecapHeading& heading = recapHeading(place.block);
    add<Label>(std::string(heading.label), std::string(heading.text), LabelRole::kHeading);
  }
  for (int index = 0; index < kRecapLabels; ++index) {
    const RecapFigure& figure = recapFigure(static_cast<Figure>(index));
    if (figure.block == RecapBlock::kProfit) continue;
    add<Label>(std::string(figure.caption), std::string(figure.name), LabelRole::kCaption);
  }
  for (const FixedText& caption : kProfitCaptions) {
    add<Label>(std::string(caption.label), std::string(caption.text), LabelRole::kCaption);
  }
  for (int index = 0; index < kRecapLabels; ++index) {
    Label& label = *recap_[static_cast<std::size_t>(index)];
    if (index >= kFirstYearLabel && index <= kLastYearLabel) label.setCaption(" ");
    label.onClick = [this, index] { lblRecap_Click(index); };
  }
  static const std::vector<Place> kSheet = makeSheet();
  setSheet(kSheet);
  setRecapSheet(this);
}

frmRecap::~frmRecap() {
  setRecapSheet(nullptr);
}

void frmRecap::Form_Load() {
  const Date moment = now();
  compiled = moment;
  lblcompiledate.setCaption(" Compiled  " + moment.shortDateText() + "  " + moment.longTimeText());
  lblcompiledate.Refresh();
}

Label& frmRecap::lblRecap(int index) {
  if (index < 0 || index >= kRecapLabels) throw RunTimeError(kSubscriptOutOfRange);
  return *recap_[static_cast<std::size_t>(index)];
}

void frmRecap::lblRecap_Click(int index) {
  if (lblRecap(index).inError() && onViewLog) onViewLog();
}

}  // namespace dg
