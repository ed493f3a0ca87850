#pragma once

#include <string>
#include <vector>

#include "shell/store_recap.h"
#include "tools/dgtool/command.h"

namespace dg {

/// "dgtool recap": the recaps of several stores side by side.
class RecapCommand final : public Command {
 public:
  explicit RecapCommand(const ViewCatalogue& catalogue) : catalogue_(catalogue) {}
  void addOptions(CLI::App& app) override;
  int run(const Console& console) override;

 private:
  const ViewCatalogue& catalogue_;
  StoreOptions store_;
  std::string stores_;
  std::string workbook_;
  bool json_ = false;
  bool csv_ = false;
  bool progress_ = false;
};

/// The formats of several recaps; the totals are worked out anew in each.
void writeRecapText(std::ostream& out, const std::vector<StoreRecap>& stores);
void writeRecapJson(std::ostream& out, const std::vector<StoreRecap>& stores);
/// A line a figure, a column a store; a line with the stores' names, or why one could not be read.
void writeRecapCsv(std::ostream& out, const std::vector<StoreRecap>& stores);
/// The bytes of a workbook. Raises ExportError.
std::string recapWorkbook(const std::vector<StoreRecap>& stores);

}  // namespace dg
