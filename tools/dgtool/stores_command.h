#pragma once

#include "tools/dgtool/command.h"

namespace dg {

/// "dgtool stores": the store directories that the link table names.
class StoresCommand final : public Command {
 public:
  void addOptions(CLI::App& app) override;
  int run(const Console& console) override;

 private:
  StoreOptions store_;
  bool json_ = false;
};

}  // namespace dg
