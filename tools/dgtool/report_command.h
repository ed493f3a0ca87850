#pragma once

#include <string>
#include <vector>

#include "tools/dgtool/command.h"
#include "tools/dgtool/report_format.h"

namespace dg {

/// `dgtool report`. Status 1 when a view ended in "Data Error !" or the load broke off. Raises
/// UsageError for a view, grid or column that is not there, and when the store cannot be reached.
class ReportCommand final : public Command {
 public:
  explicit ReportCommand(const ViewCatalogue& catalogue);
  void addOptions(CLI::App& app) override;
  int run(const Console& console) override;

 private:
  void addFormats(CLI::App& app, CLI::Option& details);

  const ViewCatalogue& catalogue_;
  StoreOptions store_;
  std::vector<std::string> views_;  ///< empty: all
  bool refresh_ = false;
  std::vector<HeadClick> clicks_;
  bool details_ = false;
  const ReportFormat* format_;
  std::string argument_;  ///< of the format's option
};

}  // namespace dg
