#pragma once

#include <optional>
#include <string>
#include <vector>

#include "history/figure_history.h"
#include "tools/dgtool/command.h"

namespace dg {

/// What a history report is written from.
struct HistoryReport {
  StoreKey store;
  std::vector<Date> days;
  std::vector<FigureHistory> figures;
};

/// "dgtool history": the kept figures, and how they changed.
class HistoryCommand final : public Command {
 public:
  void addOptions(CLI::App& app) override;
  int run(const Console& console) override;

 private:
  HistoryReport read(const Console& console) const;

  StoreOptions store_;
  std::string file_;
  std::vector<std::string> figures_;
  std::optional<Date> since_;
  bool json_ = false;
  bool csv_ = false;
};

void writeHistoryText(std::ostream& out, const HistoryReport& report);
void writeHistoryJson(std::ostream& out, const HistoryReport& report);
/// A line a day, a column a figure; of attention also a column of counts.
void writeHistoryCsv(std::ostream& out, const HistoryReport& report);

}  // namespace dg
