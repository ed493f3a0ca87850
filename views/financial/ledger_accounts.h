#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "shell/recap_figures.h"
#include "shell/view.h"

namespace dg {

/// What differs between the two views of ledger accounts, as data.
struct LedgerKind {
  std::string_view form, title, progress;
  std::string_view section;      ///< of the settings that hold the account list
  std::string_view setupKind;    ///< what the account dialog offers
  std::string_view totalLabel;   ///< name of the label that shows the view's total
  std::string_view totalPrefix;  ///< stands before the total there
  std::string_view dataFailure, balanceFailure;
  Figure figure;  ///< of the recap
  /// Asset accounts also read the liabilities' list, which nothing uses: an old habit of the view
  /// that costs one look at the settings.
  bool readsLiabilitiesToo;
};

/// A view of chosen general ledger accounts with their balances. The accounts come from the user's
/// settings, the names from the chart ("CHRTL"), the balances from the ledger details ("GLDTL").
class LedgerAccounts : public View {
 public:
  void Form_Load() override;
  /// The user picks other accounts; unless cancelled, all is worked out anew.
  void cmdCashSetup_Click();

  Grid& grdGLCash;
  Label& lblTotal;
  Label& lblReCalc;
  Button& cmdCashSetup;

 protected:
  explicit LedgerAccounts(const LedgerKind& kind);

 private:
  void loadData();
  void GetGLData();
  double addAccount(const std::string& entry);
  double GetGLBalance(const std::string& key, std::int32_t account);

  const LedgerKind& kind_;
};

/// "General Ledger Asset Accounts". Writes the recap's "G/L Asset Total".
class frmGLA final : public LedgerAccounts {
 public:
  frmGLA();
};

/// "General Ledger Liability Accounts". Writes the recap's "G/L Liability Total".
class frmGLL final : public LedgerAccounts {
 public:
  frmGLL();
};

}  // namespace dg
