#include "views/financial/receivables.h"

#include <string>
#include <vector>

#include "engine/state.h"
#include "engine/text_utilities.h"
#include "platform/file.h"
#include "platform/text_file.h"
#include "platform/values/convert.h"
#include "platform/values/format.h"
#include "records/file_names.h"
#include "shell/recap_sheet.h"
#include "shell/splash.h"
#include "shell/trap.h"

namespace dg {

namespace {

constexpr std::string_view kBalanceMask = "$#,###,###.00";

// What a line of the summary means goes by its number, counted from 1. The first is a heading.
constexpr int kFirstCurrentLine = 2;
constexpr int kTotalLine = 30;  ///< the last current balance, which is also the total

constexpr ColumnSpec kCurrentColumns[] = {
    {.name = "Description"},
    {.name = "Balance", .kind = ColumnKind::kMoney},
};
constexpr ColumnSpec kFutureColumns[] = {
    {.name = "Period"},
    {.name = "Balance", .kind = ColumnKind::kMoney},
};

constexpr Place kSheet[] = {
    {.control = "Label1", .row = 0, .columnSpan = 2},
    {.control = "Label2", .row = 1, .columnSpan = 2},
    {.control = "grdARCur", .row = 2, .column = 0},
    {.control = "grdFuture", .row = 2, .column = 1},
};

const std::string& fieldAt(const std::vector<std::string>& fields, std::size_t index) {
  if (index >= fields.size()) throw RunTimeError(kSubscriptOutOfRange);
  return fields[index];
}

/// A line's balance, stored as text in cents.
std::string balance(const std::vector<std::string>& fields) {
  return Format(CDbl(fieldAt(fields, 1)) / 100, kBalanceMask);
}

void addBalance(Grid& grid, std::string_view labelColumn, const std::vector<std::string>& fields) {
  grid.AddNew();
  grid.set(labelColumn, fieldAt(fields, 0));
  grid.set("Balance", balance(fields));
  grid.Update();
}

}  // namespace

frmAR::frmAR()
    : View("frmAR", "Accounts Receivable"),
      Label2(addTitled<Label>("Label1", "Accounts Receivable", "Label2", "as of last ENDDAY",
                              LabelRole::kNote)),
      grdARCur(add<Grid>("grdARCur", kCurrentColumns)),
      grdFuture(add<Grid>("grdFuture", kFutureColumns, "Futures")) {
  setSheet(kSheet);
}

void frmAR::Form_Load() {
  showProgress("Loading A/R...");
  trapView(
      *this, "Error in frmAr GetAR routine ", [this] { GetAR(); },
      [] { markRecapError(Figure::kReceivables); });
}

void frmAR::GetAR() {
  for (Grid* grid : {&grdARCur, &grdFuture}) {
    grid->RemoveAll();
    grid->Refresh();
  }
  if (!SystemInfo) throw RunTimeError(kObjectNotSet);
  const std::string path = SystemInfo->VLMRLNK() + "\\" + files::kReceivablesSummary;
  if (!fileSystem().fileExists(path)) {
    // A store that has not had an end-of-day run yet: nothing to show, and no failure.
    grdARCur.setVisible(false);
    grdFuture.setVisible(false);
    return;
  }
  TextReader summary(path);
  for (int number = 1; !summary.AtEndOfStream(); ++number) {
    const std::vector<std::string> fields = Split(summary.ReadLine(), ",");
    if (number >= kFirstCurrentLine && number <= kTotalLine) {
      addBalance(grdARCur, "Description", fields);
    }
    Label& total = recapLabel(Figure::kReceivables);
    if (number == kTotalLine) total.setCaption(balance(fields));
    total.Refresh();
    if (number > kTotalLine) addBalance(grdFuture, "Period", fields);
  }
  grdARCur.MoveFirst();
  grdFuture.MoveFirst();
}

}  // namespace dg
