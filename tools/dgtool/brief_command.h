#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "export/brief.h"
#include "export/mail.h"
#include "history/history.h"
#include "tools/dgtool/command.h"

namespace dg {

class Session;

/// "dgtool brief": the morning report, as a page or a mail.
class BriefCommand final : public Command {
 public:
  explicit BriefCommand(const ViewCatalogue& catalogue) : catalogue_(catalogue) {}
  void addOptions(CLI::App& app) override;
  int run(const Console& console) override;

 private:
  void checkOptions() const;
  /// The figures of the stores; what was left out is told. `whole`: whether nothing was.
  Brief read(const Console& console, bool& whole);
  void write(const Console& console, const Brief& brief) const;
  std::string mail(const Brief& brief) const;

  const ViewCatalogue& catalogue_;
  StoreOptions store_;
  std::string stores_;
  std::string history_;
  std::string html_;
  std::string eml_;
  std::optional<MailAddress> from_;
  std::vector<MailAddress> to_;
  std::string subject_;
  bool attach_ = false;
  std::string workbook_;  ///< bytes, once made
};

}  // namespace dg
