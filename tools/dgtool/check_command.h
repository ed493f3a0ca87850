#pragma once

#include "tools/dgtool/command.h"

namespace dg {

struct CheckCommandOptions {
  StoreOptions store;
  bool quick = false;
  bool json = false;
  int limit = 20;  ///< findings shown of each file
};

/// `dgtool check`: examines the store's files. Status 1 when there is damage. Raises UsageError
/// when the store cannot be reached.
class CheckCommand final : public Command {
 public:
  void addOptions(CLI::App& app) override;
  int run(const Console& console) override;

 private:
  CheckCommandOptions options_;
};

}  // namespace dg
