#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "forms/form.h"

namespace dg {

/// Kind of accounts that frmSetup offers: "A" for assets, "L" for liabilities. Set before it is
/// shown.
extern std::string SetupKind;
/// Whether the last frmSetup was left by "&Cancel": -1, else 0.
extern std::int16_t SetupCancelled;

/// Names of the per-user settings that hold the account lists. A list's entries are parted by
/// commas: two digits of company number, then the account number.
inline constexpr const char* kSettingsApplication = "DealerGauge";
inline constexpr const char* kAssetSection = "Asset";
inline constexpr const char* kLiabilitySection = "Liability";
inline constexpr const char* kAccountsKey = "Accounts";

/// The dialog in which the user chooses the ledger accounts that a G/L view adds up. It always
/// starts with the whole chart on the left and nothing on the right, and what stands on the right
/// at "&Done" replaces the stored list.
class frmSetup final : public Form {
 public:
  frmSetup();

  void Form_Load();
  /// Appends the chart's accounts of a kind to a grid. Traps its own errors: a message, two log
  /// lines, and the rows that it got.
  void GetGLAccount(const std::string& kind, Grid& grid);
  /// Copies the row at a bookmark to the end of the other grid. Raises 9.
  void MoveLine(int from, int to, int bookmark);
  /// Stores the right-hand list. Raises as SaveSetting.
  void SaveAccounts();

  /// The chart, 0, and the accounts chosen, 1.
  Grid& grdA(int index) const { return get<Grid>(elementName("grdA", index)); }
  Button& cmdMove(int index) const { return get<Button>(elementName("cmdMove", index)); }
  Button& cmdDone;
  Button& cmdCancel;

  /// Asked when "&Done" would store an empty list over one of so many accounts; empty: no question.
  /// Set by who shows the dialog.
  std::function<bool(int accounts)> mayForget;

 private:
  void addLists();
  void addList(int index, const std::string& heading);
  void sortList(Grid& grid, int column);
  int storedAccounts() const;
  void cmdMove_Click(int index);
  void moveSelected(int from, int to);
  void moveAll(int from, int to);

  std::string section_;
};

/// Loads the dialog for SetupKind and shows it until the user has closed it.
void showSetup();

}  // namespace dg
