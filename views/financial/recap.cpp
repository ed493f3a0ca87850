#include "views/financial/recap.h"

#include <string>
#include <string_view>

#include "platform/clock.h"
#include "platform/values/run_time_error.h"

namespace dg {

namespace {

struct FixedText {
  std::string_view label, text;
};

constexpr FixedText kHeadings[] = {
    {"Label2(0)", "Assets"},
    {"Label2(1)", "Liabilities"},
    {"Label2(2)", "Sales && Profit"},
};

constexpr FixedText kCaptions[] = {
    {"Label1(1)", "Accounts Receivable"},
    {"Label1(2)", "Inventory - Parts"},
    {"Label1(3)", "Open Sales Orders"},
    {"Label1(4)", "Open Shop Work"},
    {"Label1(5)", "G/L Asset Total"},
    {"Label1(6)", "Pending Returns"},
    {"Label1(7)", "Billed Warranties"},
    {"Label1(8)", "Todays Sales"},
    {"Label1(9)", "Open Purchase Orders"},
    {"Label1(10)", "G/L Liability Total"},
    {"Label1(11)", "Todays Cash"},
    {"Label1(12)", "Floor Plan"},
    {"Label1(13)", "Units"},
    {"Label1(14)", "Sales"},
    {"Label1(15)", "Cost"},
    {"Label1(16)", "GPR"},
    {"Label1(17)", "MTD"},
    {"Label1(18)", "YTD"},
    {"Label1(19)", "LYR"},
};

/// The year's three labels start with a blank, all others empty.
constexpr int kFirstYearLabel = 16;
constexpr int kLastYearLabel = 18;

// Assets in the two columns on the left; liabilities above sales and profit on the right.
constexpr Place kSheet[] = {
    {.control = "lblTitle", .row = 0, .columnSpan = 3},
    {.control = "lblcompiledate", .row = 0, .column = 3, .columnSpan = 3},

    {.control = "Label2(0)", .row = 1, .column = 0, .columnSpan = 2},
    {.control = "Label1(1)", .row = 2, .column = 0},
    {.control = "lblRecap(0)", .row = 2, .column = 1},
    {.control = "Label1(7)", .row = 3, .column = 0},
    {.control = "lblRecap(6)", .row = 3, .column = 1},
    {.control = "Label1(5)", .row = 4, .column = 0},
    {.control = "lblRecap(4)", .row = 4, .column = 1},
    {.control = "Label1(2)", .row = 5, .column = 0},
    {.control = "lblRecap(1)", .row = 5, .column = 1},
    {.control = "Label1(12)", .row = 6, .column = 0},
    {.control = "lblRecap(11)", .row = 6, .column = 1},
    {.control = "Label1(13)", .row = 7, .column = 0},
    {.control = "lblRecap(12)", .row = 7, .column = 1},
    {.control = "Label1(3)", .row = 8, .column = 0},
    {.control = "lblRecap(2)", .row = 8, .column = 1},
    {.control = "Label1(4)", .row = 9, .column = 0},
    {.control = "lblRecap(3)", .row = 9, .column = 1},
    {.control = "Label1(6)", .row = 10, .column = 0},
    {.control = "lblRecap(5)", .row = 10, .column = 1},
    {.control = "Label1(8)", .row = 11, .column = 0},
    {.control = "lblRecap(7)", .row = 11, .column = 1},
    {.control = "Label1(11)", .row = 12, .column = 0},
    {.control = "lblRecap(10)", .row = 12, .column = 1},

    {.control = "Label2(1)", .row = 1, .column = 2, .columnSpan = 4},
    {.control = "Label1(9)", .row = 2, .column = 2, .columnSpan = 2},
    {.control = "lblRecap(8)", .row = 2, .column = 4, .columnSpan = 2},
    {.control = "Label1(10)", .row = 3, .column = 2, .columnSpan = 2},
    {.control = "lblRecap(9)", .row = 3, .column = 4, .columnSpan = 2},

    {.control = "Label2(2)", .row = 5, .column = 2, .columnSpan = 4},
    {.control = "Label1(14)", .row = 6, .column = 3},
    {.control = "Label1(15)", .row = 6, .column = 4},
    {.control = "Label1(16)", .row = 6, .column = 5},
    {.control = "Label1(17)", .row = 7, .column = 2},
    {.control = "lblRecap(13)", .row = 7, .column = 3},
    {.control = "lblRecap(14)", .row = 7, .column = 4},
    {.control = "lblRecap(15)", .row = 7, .column = 5},
    {.control = "Label1(18)", .row = 8, .column = 2},
    {.control = "lblRecap(16)", .row = 8, .column = 3},
    {.control = "lblRecap(17)", .row = 8, .column = 4},
    {.control = "lblRecap(18)", .row = 8, .column = 5},
    {.control = "Label1(19)", .row = 9, .column = 2},
    {.control = "lblRecap(19)", .row = 9, .column = 3},
    {.control = "lblRecap(20)", .row = 9, .column = 4},
    {.control = "lblRecap(21)", .row = 9, .column = 5},
};

}  // namespace

frmRecap::frmRecap()
    : View("frmRecap", "System Recap"),
      lblcompiledate((add<Label>("lblTitle", "System Recap", LabelRole::kTitle),
                      add<Label>("lblcompiledate", "", LabelRole::kNote))),
      recap_(addLabels<kRecapLabels>("lblRecap")) {
  for (const FixedText& heading : kHeadings) {
    add<Label>(std::string(heading.label), std::string(heading.text), LabelRole::kHeading);
  }
  for (const FixedText& caption : kCaptions) {
    add<Label>(std::string(caption.label), std::string(caption.text), LabelRole::kCaption);
  }
  for (int index = 0; index < kRecapLabels; ++index) {
    Label& label = *recap_[static_cast<std::size_t>(index)];
    if (index >= kFirstYearLabel && index <= kLastYearLabel) label.setCaption(" ");
    label.onClick = [this, index] { lblRecap_Click(index); };
  }
  setSheet(kSheet);
  setRecapSheet(this);
}

frmRecap::~frmRecap() {
  setRecapSheet(nullptr);
}

void frmRecap::Form_Load() {
  const Date moment = now();
  lblcompiledate.setCaption(" Compiled  " + moment.shortDateText() + "  " + moment.longTimeText());
  lblcompiledate.Refresh();
}

Label& frmRecap::lblRecap(int index) {
  if (index < 0 || index >= kRecapLabels) throw RunTimeError(kSubscriptOutOfRange);
  return *recap_[static_cast<std::size_t>(index)];
}

void frmRecap::lblRecap_Click(int index) {
  if (lblRecap(index).caption() == kDataError && onViewLog) onViewLog();
}

}  // namespace dg
