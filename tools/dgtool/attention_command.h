#pragma once

#include <string>
#include <vector>

#include "insight/attention.h"
#include "tools/dgtool/command.h"

namespace dg {

/// What an attention report is written from.
struct AttentionReport {
  Date asOf;
  std::vector<KindResult> kinds;
  std::vector<Ageing> ageing;
};

/// "dgtool attention": what needs attention today, and how old the open work is.
class AttentionCommand final : public Command {
 public:
  void addOptions(CLI::App& app) override;
  int run(const Console& console) override;

 private:
  std::vector<AttentionKind> wantedKinds() const;
  AttentionLimits wantedLimits() const;
  AttentionReport read(const Console& console);

  StoreOptions store_;
  std::vector<std::string> kinds_;
  std::vector<std::string> limits_;
  bool all_ = false;
  bool json_ = false;
  bool csv_ = false;
};

void writeAttentionText(std::ostream& out, const AttentionReport& report);
void writeAttentionJson(std::ostream& out, const AttentionReport& report);
/// A line an item, over all kinds.
void writeAttentionCsv(std::ostream& out, const AttentionReport& report);

}  // namespace dg
