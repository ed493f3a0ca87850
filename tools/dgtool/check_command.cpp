#include "tools/dgtool/check_command.h"

#include <string>
#include <string_view>

#include "engine/state.h"
#include "tools/check/store_check.h"
#include "tools/dgtool/session.h"
#include "tools/dgtool/window_json.h"

namespace dg {

namespace {

using check::CheckedAmount;
using check::FileFindings;
using check::Finding;
using check::Findings;
using check::Severity;
using check::StoreReader;
using check::Unit;

constexpr std::string_view nameOf(Severity severity) {
  return severity == Severity::kDamage ? "damage" : "note";
}

constexpr std::string_view nameOf(Unit unit) {
  switch (unit) {
    case Unit::kEntry:
      return "entry";
    case Unit::kBlock:
      return "block";
    case Unit::kRecord:
      return "record";
    case Unit::kNone:
      break;
  }
  return {};
}

/// "1 note", "2,345 notes".
std::string counted(std::int64_t number, std::string_view noun, std::string_view plural) {
  std::string digits = std::to_string(number);
  constexpr std::size_t kGroup = 3;
  for (std::size_t at = digits.size(); at > kGroup;) {
    at -= kGroup;
    digits.insert(at, ",");
  }
  return digits.append(" ").append(number == 1 ? noun : plural);
}

std::string damageCounted(std::int64_t number) {
  return counted(number, "finding of damage", "findings of damage");
}
std::string notesCounted(std::int64_t number) {
  return counted(number, "note", "notes");
}

/// What a check came to.
struct Outcome {
  Findings findings;
  CheckedAmount amount;
  bool quick = false;
};

Json json(const Finding& finding) {
  Json result = {{"severity", nameOf(finding.severity)},
                 {"kind", finding.kind},
                 {"file", jsonText(finding.place.file)},
                 {"physicalFile", jsonText(finding.place.physical)}};
  if (finding.place.unit != Unit::kNone)
    result[std::string(nameOf(finding.place.unit))] = finding.place.number;
  if (finding.place.offset) result["offset"] = *finding.place.offset;
  result["text"] = jsonText(finding.text);
  return result;
}

void writeJsonOutcome(std::ostream& out, const Outcome& outcome) {
  Json findings = Json::array();
  Json omitted = Json::array();
  for (const FileFindings& file : outcome.findings.files()) {
    for (const Finding& finding : file.kept)
      findings.push_back(json(finding));
    if (file.moreDamage + file.moreNotes > 0) {
      omitted.push_back(
          {{"file", jsonText(file.file)}, {"damage", file.moreDamage}, {"notes", file.moreNotes}});
    }
  }
  writeJson(out, {{"directory", jsonText(SystemInfo->mDirectory)},
                  {"extent", outcome.quick ? "quick" : "whole"},
                  {"damage", outcome.findings.damageCount()},
                  {"notes", outcome.findings.noteCount()},
                  {"files", outcome.amount.files},
                  {"indexEntries", outcome.amount.indexEntries},
                  {"records", outcome.amount.records},
                  {"findings", std::move(findings)},
                  {"omitted", std::move(omitted)}});
}

/// "block 3, byte 66048 of LNK001\PARTDB".
std::string placeText(const check::Place& place) {
  std::string text;
  if (place.unit != Unit::kNone) {
    text.append(nameOf(place.unit)).append(" ").append(std::to_string(place.number)).append(", ");
  }
  if (place.offset) text += "byte " + std::to_string(*place.offset) + " of ";
  return text + place.physical;
}

void writeTextOutcome(std::ostream& out, const Outcome& outcome) {
  for (const FileFindings& file : outcome.findings.files()) {
    out << terminalText(file.file) << '\n';
    for (const Finding& finding : file.kept) {
      out << "  " << (finding.severity == Severity::kDamage ? "damage  " : "note    ")
          << terminalText(finding.text) << "\n          " << terminalText(placeText(finding.place))
          << '\n';
    }
    if (file.moreDamage > 0) out << "  and " << damageCounted(file.moreDamage) << " more\n";
    if (file.moreNotes > 0) out << "  and " << notesCounted(file.moreNotes) << " more\n";
    out << '\n';
  }
  const CheckedAmount& amount = outcome.amount;
  out << terminalText(SystemInfo->mDirectory) << ": "
      << counted(amount.files, "logical file", "logical files") << ", "
      << counted(amount.indexEntries, "index entry", "index entries");
  if (!outcome.quick) out << ", " << counted(amount.records, "record", "records") << " in use";
  out << " examined: " << damageCounted(outcome.findings.damageCount()) << ", "
      << notesCounted(outcome.findings.noteCount()) << ".\n";
}

}  // namespace

void CheckCommand::addOptions(CLI::App& app) {
  app.add_flag("--quick", options_.quick,
               "Examine the structures only: links, directories, record zeros, indexes");
  app.add_flag("--json", options_.json, "Write one JSON document");
  app.add_option("--limit", options_.limit, "Show at most this many findings of each file")
      ->type_name("N")
      ->capture_default_str()
      ->check(CLI::Range(1, 10'000));
  addStoreOptions(app, options_.store);
}

int CheckCommand::run(const Console& console) {
  Session session(options_.store, console);
  session.locateStore();
  Outcome outcome{.findings = Findings(static_cast<std::size_t>(options_.limit)),
                  .amount = {},
                  .quick = options_.quick};
  StoreReader store(SystemInfo->mUNCDrive, SystemInfo->mDirectory);
  outcome.amount =
      check::checkStore(store, outcome.findings,
                        {.quick = options_.quick, .progress = [&session](std::string_view file) {
                           session.showProgress("Examining " + std::string(file) + "...");
                         }});
  session.clearProgress();
  if (options_.json) {
    writeJsonOutcome(console.out, outcome);
  } else {
    writeTextOutcome(console.out, outcome);
  }
  session.complain();
  return outcome.findings.damageCount() > 0 ? 1 : 0;
}

}  // namespace dg
