#include "views/financial/ledger_accounts.h"

#include <vector>

#include "engine/business_basic.h"
#include "engine/state.h"
#include "platform/settings.h"
#include "platform/text.h"
#include "platform/values/checked.h"
#include "platform/values/convert.h"
#include "platform/values/format.h"
#include "records/file_names.h"
#include "records/index_walk.h"
#include "records/ledger.h"
#include "records/read.h"
#include "shell/recap_sheet.h"
#include "shell/setup.h"
#include "shell/splash.h"
#include "shell/trap.h"
#include "shell/write_log.h"

namespace dg {

namespace {

constexpr LedgerKind kAssets = {
    .form = "frmGLA",
    .title = "General Ledger Asset Accounts",
    .progress = "Loading General Ledger Asset Accounts...",
    .section = kAssetSection,
    .setupKind = "A",
    .totalLabel = "lblTotal",
    .totalPrefix = "",
    .dataFailure = "Error in frmGLA GetGLData routine ",
    .balanceFailure = "Error in frmGLA GetGLBalance function ",
    .figure = Figure::kLedgerAssets,
    .readsLiabilitiesToo = true,
};

constexpr LedgerKind kLiabilities = {
    .form = "frmGLL",
    .title = "General Ledger Liability Accounts",
    .progress = "Loading General Ledger Liability Accounts...",
    .section = kLiabilitySection,
    .setupKind = "L",
    .totalLabel = "lbltotal",
    .totalPrefix = "Total ",
    .dataFailure = "Error in frmGLL GetGLData routine ",
    .balanceFailure = "Error in frmGLL GetGLBalance function ",
    .figure = Figure::kLedgerLiabilities,
    .readsLiabilitiesToo = false,
};

constexpr std::string_view kAmountMask = "$#,###,###.00";

/// What a list counts as that was never stored: one entry that names no account.
constexpr const char* kNoList = "1";
constexpr std::size_t kCompanyDigits = 2;

constexpr ColumnSpec kColumns[] = {
    {.name = "Co #", .kind = ColumnKind::kNumber},
    {.name = "Account", .kind = ColumnKind::kNumber},
    {.name = "Description"},
    {.name = "Balance", .kind = ColumnKind::kMoney},
};

constexpr Place kSheet[] = {
    {.control = "Label1", .row = 0, .columnSpan = 3},
    {.control = "grdGLCash", .row = 1, .columnSpan = 4},
    {.control = "cmdCashSetup", .row = 2, .column = 0},
    {.control = "lblCashTotal", .row = 2, .column = 1},
    {.control = "lblTotal", .row = 2, .column = 2, .under = "Balance"},
    {.control = "lblReCalc", .row = 2, .column = 3},
};
constexpr Place kLiabilitySheet[] = {
    {.control = "Label1", .row = 0, .columnSpan = 3},
    {.control = "grdGLCash", .row = 1, .columnSpan = 3},
    {.control = "cmdCashSetup", .row = 2, .column = 0},
    {.control = "lbltotal", .row = 2, .column = 1, .under = "Balance"},
    {.control = "lblReCalc", .row = 2, .column = 2},
};

}  // namespace

LedgerAccounts::LedgerAccounts(const LedgerKind& kind)
    : View(std::string(kind.form), std::string(kind.title)),
      grdGLCash(addTitled<Grid>("Label1", std::string(kind.title), "grdGLCash", kColumns)),
      lblTotal(add<Label>(std::string(kind.totalLabel))),
      lblReCalc(add<Label>("lblReCalc", "Re-Calculating... please wait !", LabelRole::kNote)),
      cmdCashSetup(add<Button>("cmdCashSetup", "&Select Accounts")),
      kind_(kind) {
  if (kind.totalPrefix.empty()) add<Label>("lblCashTotal", "Total :", LabelRole::kCaption);
  lblReCalc.setVisible(false);
  cmdCashSetup.onClick = [this] { cmdCashSetup_Click(); };
  if (kind.totalPrefix.empty()) {
    setSheet(kSheet);
  } else {
    setSheet(kLiabilitySheet);
  }
}

frmGLA::frmGLA() : LedgerAccounts(kAssets) {}
frmGLL::frmGLL() : LedgerAccounts(kLiabilities) {}

void LedgerAccounts::Form_Load() {
  showProgress(std::string(kind_.progress));
  loadData();
}

void LedgerAccounts::loadData() {
  trapView(
      *this, kind_.dataFailure, [this] { GetGLData(); }, [this] { markRecapError(kind_.figure); });
}

void LedgerAccounts::cmdCashSetup_Click() {
  SetupKind = kind_.setupKind;
  showSetup();
  if (SetupCancelled != 0) return;
  setMousePointer(kHourglass);
  lblReCalc.setVisible(true);
  lblReCalc.Refresh();
  loadData();
  lblReCalc.setVisible(false);
  lblReCalc.Refresh();
  setMousePointer(kDefaultPointer);
}

void LedgerAccounts::GetGLData() {
  const std::string list =
      GetSetting(kSettingsApplication, std::string(kind_.section), kAccountsKey, kNoList);
  if (kind_.readsLiabilitiesToo) {
    GetSetting(kSettingsApplication, kLiabilitySection, kAccountsKey, kNoList);
  }
  const std::vector<std::string> entries = sharedEngine().Split(list, ",");
  grdGLCash.RemoveAll();
  grdGLCash.Refresh();
  double total = 0;
  for (const std::string& entry : entries)
    total += addAccount(entry);
  grdGLCash.MoveFirst();
  const std::string text = Format(total, kAmountMask);
  writeRecap(kind_.figure, text);
  lblTotal.setCaption(std::string(kind_.totalPrefix) + text);
}

/// Adds the row of one entry of the list; an entry that the chart does not hold is skipped. Returns
/// its balance in dollars.
double LedgerAccounts::addAccount(const std::string& entry) {
  const std::int32_t wantedCompany = CLng(Val(middle(entry, 1, kCompanyDigits)));
  const std::int32_t wantedAccount = CLng(Val(middle(entry, kCompanyDigits + 1)));
  const std::int32_t found = findExact(files::kChartIndex, chartKey(wantedCompany, wantedAccount));
  if (found == 0) return 0;
  const std::string record = readRecord(files::kChart, found);
  const std::int32_t company = Unpack(chart_record::kCompany, record);
  const std::int32_t account = Unpack(chart_record::kAccount, record);
  grdGLCash.AddNew();
  grdGLCash.set("Co #", company);
  grdGLCash.set("Account", account);
  grdGLCash.set("Description", std::string(bytesOf(chart_record::kDescription, record)));
  const double balance = GetGLBalance(ledgerDetailKey(company, account), account);
  grdGLCash.set("Balance", Format(balance, kAmountMask));
  grdGLCash.Update();
  return balance;
}

/// An account's balance in dollars. An account whose details run up to the very end of the index
/// has none: the sum is dropped with the record 0 that ends the walk. The last account of the
/// ledger has always shown so.
double LedgerAccounts::GetGLBalance(const std::string& key, std::int32_t account) {
  double result = 0;
  std::int32_t record = 0;
  trapErrors(
      [&] {
        double cents = 0;
        for (IndexWalk walk(files::kLedgerDetailIndex, key);; walk.next()) {
          if (walk.record() == 0) return;
          record = checkedAbs(walk.record());
          const std::string detail = readRecord(files::kLedgerDetails, record);
          if (Unpack(ledger_detail::kAccount, detail) != account) break;
          const std::int32_t sign = Unpack(ledger_detail::kSign, detail);
          const std::int32_t amount = Unpack(ledger_detail::kAmount, detail);
          cents += sign == ledger_detail::kNegative ? checkedSubtract(0, amount) : amount;
          cents += Unpack(ledger_detail::kMillions, detail) * ledger_detail::kMillion;
        }
        result = cents / 100;
      },
      [&](const RunTimeError& error) {
        markIncomplete();
        logLine("*" + std::string(kind_.balanceFailure) +
                "error # :  " + std::to_string(error.number()) + "  \r\n" + error.description() +
                "  at line :0\r\n" + "gldtl record =" + std::to_string(record) +
                "\r\nAcct=" + std::to_string(account));
      });
  return result;
}

}  // namespace dg
