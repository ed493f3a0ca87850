#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "tools/dgtool/command.h"

namespace dg {

struct SampleCommandOptions {
  std::string folder;
  std::uint64_t seed = 1;
  int scale = 1;
  int stores = 1;
  std::optional<Date> asOf;
  bool warrantySegments = false;
};

/// `dgtool sample`: writes an example store. Raises UsageError for a folder that holds something
/// else, and what the writer raises.
class SampleCommand final : public Command {
 public:
  void addOptions(CLI::App& app) override;
  int run(const Console& console) override;

 private:
  SampleCommandOptions options_;
};

}  // namespace dg
