#include "tools/dgtool/attention_command.h"

#include <algorithm>
#include <charconv>
#include <optional>

#include "platform/clock.h"
#include "platform/read_ahead.h"
#include "platform/unopened_files.h"
#include "tools/dgtool/left_out.h"
#include "tools/dgtool/session.h"

namespace dg {

namespace {

const KindEntry& kindNamed(const std::string& option, const std::string& name) {
  if (const KindEntry* entry = findKind(name)) return *entry;
  std::string all;
  for (const KindEntry& entry : attentionKinds())
    all.append(all.empty() ? " " : ", ").append(entry.name);
  throw UsageError(option + ": there is no kind " + name + "; the kinds are" + all);
}

/// The whole number of days that a text is, 0 to kMostDays.
std::optional<int> parseDays(std::string_view text) {
  int days = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, days);
  if (text.empty() || text.front() == '-' || error != std::errc() || stop != end) return {};
  return days <= kMostDays ? std::optional(days) : std::nullopt;
}

/// Reads whole files at most once each, when the first kind asks for one.
class WholeFiles {
 public:
  WholeFiles(const Session& session, Date today, const AttentionLimits& limits)
      : session_(session), today_(today), limits_(limits) {}

  KindResult of(AttentionKind kind) {
    if (entryOf(kind).file == WholeFile::kParts) {
      const int days = limits_[static_cast<std::size_t>(kind)];
      return attentionOf(kind, *readIdleParts(today_, days, progress("parts")), today_, limits_);
    }
    if (!customers_) customers_ = readCustomers(progress("customers"));
    const std::size_t which = kind == AttentionKind::kCustomersPastDue ? 0 : 1;
    return attentionOf(kind, (*customers_)[which], today_, limits_);
  }

 private:
  ReadProgress progress(std::string_view what) const {
    return [this, what](std::int64_t done, std::int64_t) {
      session_.showProgress("Reading " + std::string(what) + "... " + std::to_string(done));
      return true;
    };
  }

  const Session& session_;
  Date today_;
  const AttentionLimits& limits_;
  std::optional<std::array<WholeFileItems, 2>> customers_;
};

/// What a table of items has no place for.
void complain(const Console& console, const AttentionReport& report) {
  for (const std::string& line : kindWarnings(report.kinds))
    console.complain(line);
  if (const std::string warning = unopenedWarning(); !warning.empty()) console.complain(warning);
}

}  // namespace

void AttentionCommand::addOptions(CLI::App& app) {
  app.add_option("--kind", kinds_, "Only this kind, such as shop-old (repeatable)")
      ->type_name("KIND")
      ->allow_extra_args(false);
  app.add_flag("--all", all_, "Also the kinds that read the whole files of customers and parts");
  app.add_option("--limit", limits_, "Another limit of a kind, as shop-old=45 (repeatable)")
      ->type_name("KIND=DAYS")
      ->allow_extra_args(false);
  CLI::Option* json = app.add_flag("--json", json_, "One JSON document");
  app.add_flag("--csv", csv_, "CSV, a line an item")->excludes(json);
  addStoreOptions(app, store_);
}

std::vector<AttentionKind> AttentionCommand::wantedKinds() const {
  std::vector<AttentionKind> asked;
  for (const std::string& name : kinds_)
    asked.push_back(kindNamed("--kind", name).kind);
  std::vector<AttentionKind> wanted;
  for (const KindEntry& entry : attentionKinds()) {
    const bool isAsked = std::ranges::find(asked, entry.kind) != asked.end();
    if (asked.empty() ? all_ || entry.file == WholeFile::kNone : isAsked)
      wanted.push_back(entry.kind);
  }
  return wanted;
}

AttentionLimits AttentionCommand::wantedLimits() const {
  AttentionLimits limits = defaultLimits();
  for (const std::string& text : limits_) {
    const std::size_t sign = text.find('=');
    const KindEntry& entry = kindNamed("--limit", text.substr(0, sign));
    if (!entry.days) throw UsageError("--limit: " + std::string(entry.name) + " has no limit");
    const auto days = sign == std::string::npos
                          ? std::nullopt
                          : parseDays(std::string_view(text).substr(sign + 1));
    if (!days) {
      throw UsageError("--limit: \"" + text + "\" is not a kind, \"=\" and 0 to " +
                       std::to_string(kMostDays) + " days");
    }
    limits[static_cast<std::size_t>(entry.kind)] = *days;
  }
  return limits;
}

AttentionReport AttentionCommand::read(const Console& console) {
  const std::vector<AttentionKind> kinds = wantedKinds();
  const AttentionLimits limits = wantedLimits();
  store_.noLog = true;
  Session session(store_, console);
  session.openEngine();
  forgetUnopenedFiles();
  const ReadAheadScope keeping;
  AttentionReport report{.asOf = Date(now().days()), .kinds = {}, .ageing = {}};
  session.showProgress("Reading the open work...");
  OpenItems items;
  items.readMissing();
  WholeFiles files(session, report.asOf, limits);
  for (const AttentionKind kind : kinds) {
    report.kinds.push_back(entryOf(kind).file == WholeFile::kNone
                               ? attentionOf(kind, items, report.asOf, limits)
                               : files.of(kind));
  }
  report.ageing = ageingOf(items, report.asOf);
  session.clearProgress();
  return report;
}

int AttentionCommand::run(const Console& console) {
  const AttentionReport report = read(console);
  if (json_) {
    writeAttentionJson(console.out, report);
  } else if (csv_) {
    writeAttentionCsv(console.out, report);
    complain(console, report);
  } else {
    writeAttentionText(console.out, report);
  }
  const auto isWhole = [](const auto& part) { return part.isWhole(); };
  const bool whole = std::ranges::all_of(report.kinds, isWhole) &&
                     std::ranges::all_of(report.ageing, isWhole) && unopenedFiles().count == 0;
  return whole ? 0 : 1;
}

}  // namespace dg
