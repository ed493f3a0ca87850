#pragma once

#include <string>

#include "tools/dgtool/command.h"

namespace dg {

/// "dgtool snapshot": keeps today's figures in the history.
class SnapshotCommand final : public Command {
 public:
  explicit SnapshotCommand(const ViewCatalogue& catalogue) : catalogue_(catalogue) {}
  void addOptions(CLI::App& app) override;
  int run(const Console& console) override;

 private:
  const ViewCatalogue& catalogue_;
  StoreOptions store_;
  std::string file_;
};

}  // namespace dg
