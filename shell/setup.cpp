#include "shell/setup.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

#include "platform/message_box.h"
#include "platform/settings.h"
#include "platform/values/convert.h"
#include "platform/values/format.h"
#include "records/file_names.h"
#include "records/index_walk.h"
#include "records/ledger.h"
#include "records/read.h"
#include "shell/sort_grid.h"
#include "shell/trap.h"
#include "shell/write_log.h"

namespace dg {

std::string SetupKind;
std::int16_t SetupCancelled = 0;

namespace {

constexpr std::int16_t kTrue = -1;
constexpr std::int16_t kFalse = 0;

constexpr int kAvailable = 0;
constexpr int kDisplayed = 1;

constexpr ColumnSpec kColumns[] = {
    {.name = "Co #", .kind = ColumnKind::kNumber},
    {.name = "Account #", .kind = ColumnKind::kNumber},
    {.name = "Account Name"},
};

/// The first two move to the right, the others back.
constexpr const char* kMoveCaptions[] = {"Move Selected", "Move All", "Move Selected", "Move All"};

struct Kind {
  const char* letter;
  const char* heading;  // the first word has always been spelt so
  const char* section;
};
constexpr Kind kAssets{"A", "Avalable Asset Accounts", kAssetSection};
constexpr Kind kLiabilities{"L", "Avalable Liability Accounts", kLiabilitySection};

/// The walk over the chart begins here; the key's last two bytes are blank.
constexpr std::int32_t kFirstKey = 3;
constexpr std::size_t kKeyWidth = 6;

constexpr Place kSheet[] = {
    {.control = "grdA(0)", .row = 0, .column = 0, .rowSpan = 4},
    {.control = "cmdMove(0)", .row = 0, .column = 1},
    {.control = "cmdMove(1)", .row = 1, .column = 1},
    {.control = "cmdMove(2)", .row = 2, .column = 1},
    {.control = "cmdMove(3)", .row = 3, .column = 1},
    {.control = "grdA(1)", .row = 0, .column = 2, .rowSpan = 4},
    {.control = "cmdDone", .row = 4, .column = 1},
    {.control = "cmdCancel", .row = 4, .column = 2},
};

/// How far GetGLAccount has come, for the text of its failure.
struct Progress {
  std::int32_t record = 0;  ///< record number that the index gave last
  std::int32_t read = 0;    ///< records read
  std::int32_t added = 0;   ///< rows added
  std::int32_t walked = 0;  ///< index entries left behind

  std::string text(const RunTimeError& error, const std::string& kind) const {
    // Statements carry no line numbers, so the line of an error is always 0.
    return std::to_string(error.number()) + " : module frmsetup/getglaccount\r\n" +
           "---posit = " + std::to_string(record) + "  Gltype=" + kind +
           "---error line =  0 cr = " + std::to_string(read) + " crx = " + std::to_string(added) +
           "---cnt = " + std::to_string(walked);
  }
};

/// A company number as the stored list has it: two digits at least.
std::string companyText(const std::string& cell) {
  const std::optional<double> number = parseNumber(cell);
  return number ? Format(*number, "00") : cell;
}

}  // namespace

frmSetup::frmSetup()
    : Form("frmSetup", "Select Accounts"),
      cmdDone((addLists(), add<Button>("cmdDone", "&Done"))),
      cmdCancel(add<Button>("cmdCancel", "&Cancel")) {
  cmdDone.onClick = [this] {
    const int stored = grdA(kDisplayed).Rows() > 0 ? 0 : storedAccounts();
    if (stored > 0 && mayForget && !mayForget(stored)) return;
    SaveAccounts();
    Unload();
  };
  cmdCancel.onClick = [this] {
    SetupCancelled = kTrue;
    Unload();
  };
  setSheet(kSheet);
}

void frmSetup::addLists() {
  addList(kAvailable, "");
  for (int index = 0; std::cmp_less(index, std::size(kMoveCaptions)); ++index) {
    add<Button>(elementName("cmdMove", index), kMoveCaptions[index]).onClick = [this, index] {
      cmdMove_Click(index);
    };
  }
  addList(kDisplayed, "Account to Display");
}

void frmSetup::addList(int index, const std::string& heading) {
  Grid& grid = add<Grid>(elementName("grdA", index), kColumns, heading);
  grid.multiSelect = true;
  grid.onHeadClick = [this, &grid](int column) { sortList(grid, column); };
  grid.onDblClick = [this, index, &grid](int row) {
    MoveLine(index, index == kAvailable ? kDisplayed : kAvailable, row);
    grid.removeRow(row);
  };
}

/// With a direction of its own: that of the views' tables is not touched.
void frmSetup::sortList(Grid& grid, int column) {
  constexpr std::int16_t kDescending = 1;
  const bool again = grid.sortedColumn() == column && !grid.sortedDescending();
  std::int16_t direction = again ? kDescending : std::int16_t{0};
  const bool text = grid.columns()[static_cast<std::size_t>(column)].kind == ColumnKind::kText;
  std::int16_t textFlag = text ? kTrue : kFalse;
  SortGrid(grid, grid.Rows(), grid.Cols(), column, direction, textFlag);
  grid.MoveFirst();
  grid.markSorted(column, again);
}

void frmSetup::Form_Load() {
  SetupCancelled = kFalse;
  const Kind& kind = SetupKind == kAssets.letter ? kAssets : kLiabilities;
  grdA(kAvailable).setHeading(kind.heading);
  Refresh();
  section_ = kind.section;
  GetGLAccount(kind.letter, grdA(kAvailable));
}

void frmSetup::GetGLAccount(const std::string& kind, Grid& grid) {
  Progress progress;
  grid.setRedraw(false);
  trapErrors(
      [&] {
        std::string key = integerKey('L', kFirstKey);
        key.resize(kKeyWidth, ' ');
        for (IndexWalk walk(files::kChartIndex, key); !walk.atEnd();
             walk.next(), ++progress.walked) {
          progress.record = walk.record();
          const std::string account = readRecord(files::kChart, walk.record());
          ++progress.read;
          if (bytesOf(chart_record::kKind, account) != kind) continue;
          const std::int32_t company = Unpack(chart_record::kCompany, account);
          const std::int32_t number = Unpack(chart_record::kAccount, account);
          grid.AddNew();
          grid.set("Co #", company);
          grid.set("Account #", number);
          grid.set("Account Name", std::string(bytesOf(chart_record::kDescription, account)));
          grid.Update();
          ++progress.added;
        }
        grid.MoveFirst();
      },
      [&](const RunTimeError& error) {
        logLine("*" + progress.text(error, kind));
        const std::string text = "Error :" + std::to_string(error.number()) + " " +
                                 error.description() + "\r\ncan not load GL chart of accounts !";
        MsgBox(text);
        logLine("*" + text);
      });
  grid.setRedraw(true);
}

void frmSetup::MoveLine(int from, int to, int bookmark) {
  const Grid& source = grdA(from);
  Grid& target = grdA(to);
  target.AddNew();
  for (int column = 0; column < source.Cols(); ++column) {
    target.set(column, source.CellValue(column, bookmark));
  }
  target.Update();
}

void frmSetup::SaveAccounts() {
  Grid& chosen = grdA(kDisplayed);
  chosen.MoveFirst();
  std::string accounts;
  for (int row = 0; row < chosen.Rows(); ++row) {
    accounts +=
        companyText(chosen.CellValue("Co #", row)) + chosen.CellValue("Account #", row) + ",";
  }
  if (!accounts.empty()) accounts.pop_back();
  SaveSetting(kSettingsApplication, section_, kAccountsKey, accounts);
}

void frmSetup::cmdMove_Click(int index) {
  const int from = index < 2 ? kAvailable : kDisplayed;
  const int to = from == kAvailable ? kDisplayed : kAvailable;
  for (const int grid : {kAvailable, kDisplayed})
    grdA(grid).setRedraw(false);
  if (index % 2 == 0) {
    moveSelected(from, to);
  } else {
    moveAll(from, to);
  }
  for (const int grid : {kAvailable, kDisplayed})
    grdA(grid).setRedraw(true);
}

int frmSetup::storedAccounts() const {
  const std::string list = GetSetting(kSettingsApplication, section_, kAccountsKey, "");
  if (list.empty()) return 0;
  return static_cast<int>(std::count(list.begin(), list.end(), ',')) + 1;
}

/// From the last selection to the first: the rows arrive in the reverse of their selection.
void frmSetup::moveSelected(int from, int to) {
  Grid& source = grdA(from);
  for (auto row = source.SelBookmarks.rbegin(); row != source.SelBookmarks.rend(); ++row) {
    MoveLine(from, to, *row);
  }
  source.DeleteSelected();
}

void frmSetup::moveAll(int from, int to) {
  Grid& source = grdA(from);
  source.MoveFirst();
  // Those that a filter hides are not meant.
  const std::vector<int> rows = source.rowsOnShow();
  for (const int row : rows)
    MoveLine(from, to, row);
  source.removeRows(rows);
}

void showSetup() {
  frmSetup dialog;
  dialog.Form_Load();
  dialog.ShowModal();
}

}  // namespace dg
