// The formats of "dgtool attention".

#include <algorithm>

#include "export/csv.h"
#include "platform/text.h"
#include "platform/values/format.h"
#include "tools/dgtool/attention_command.h"
#include "tools/dgtool/left_out.h"

namespace dg {

namespace {

constexpr std::size_t kShownRows = 10;
constexpr std::string_view kMoneyMask = "$###,###,##0.00";

std::string money(Currency amount) {
  return Format(amount, kMoneyMask);
}

std::string counted(std::size_t count) {
  return std::to_string(count) + (count == 1 ? " item" : " items");
}

Json kindJson(const KindResult& result) {
  Json json = {{"kind", entryOf(result.kind).name}};
  if (result.days) json["days"] = *result.days;
  json["count"] = result.rows.size();
  json["amount"] = result.amount.text();
  if (const auto oldest = result.oldest()) json["oldest"] = oldest->isoText();
  if (!result.error.empty()) {
    json["error"] = jsonText(result.error);
  } else if (!result.isWhole()) {
    json["incomplete"] = true;
  }
  Json& rows = json["rows"] = Json::array();
  for (const AttentionRow& row : result.rows) {
    Json item = {{"what", jsonText(row.what)}};
    if (!row.who.empty()) item["who"] = jsonText(row.who);
    if (row.date) item["date"] = row.date->isoText();
    if (row.days) item["days"] = *row.days;
    item["amount"] = row.amount.text();
    rows.push_back(std::move(item));
  }
  return json;
}

Json ageingJson(const Ageing& ageing) {
  Json buckets = Json::array();
  for (std::size_t i = 0; i < kAgeBuckets.size(); ++i) {
    buckets.push_back({{"bucket", kAgeBuckets[i]},
                       {"count", ageing.buckets[i].count},
                       {"amount", ageing.buckets[i].amount.text()}});
  }
  Json json = {{"of", openFamilies()[static_cast<std::size_t>(ageing.family)].name},
               {"count", ageing.count},
               {"total", ageing.total.text()},
               {"buckets", std::move(buckets)}};
  if (!ageing.error.empty()) {
    json["error"] = jsonText(ageing.error);
  } else if (!ageing.isWhole()) {
    json["incomplete"] = true;
  }
  return json;
}

void writeKindText(std::ostream& out, const KindResult& result) {
  const KindEntry& entry = entryOf(result.kind);
  out << '\n' << entry.caption << " (" << entry.name << "): ";
  if (!result.error.empty()) {
    out << "could not be read: " << terminalText(result.error) << '\n';
    return;
  }
  if (result.rows.empty()) {
    out << "nothing to do\n";
    return;
  }
  out << counted(result.rows.size()) << ", " << money(result.amount) << '\n'
      << "  " << meaningOf(result) << "\n\n";
  const std::size_t shownRows = std::min(result.rows.size(), kShownRows);
  std::size_t widest = 0;
  for (std::size_t i = 0; i < shownRows; ++i)
    widest = std::max(widest, result.rows[i].what.size());
  for (std::size_t i = 0; i < shownRows; ++i) {
    const AttentionRow& row = result.rows[i];
    out << "  " << padRight(row.date ? row.date->isoText() : "", 10)
        << padLeft(row.days ? std::to_string(*row.days) : "", 6) << padLeft(money(row.amount), 18)
        << "  " << terminalText(padRight(row.what, row.who.empty() ? 0 : widest));
    if (!row.who.empty()) out << "  " << terminalText(row.who);
    out << '\n';
  }
  if (result.rows.size() > shownRows)
    out << "  and " << result.rows.size() - shownRows << " more\n";
  if (!result.isWhole()) out << "  Could not be read completely.\n";
}

void writeAgeingText(std::ostream& out, const AttentionReport& report) {
  out << "\nAge in days" << std::string(11, ' ');
  for (const std::string_view bucket : kAgeBuckets)
    out << padLeft(std::string(bucket), 18);
  out << padLeft("Total", 18) << padLeft("Items", 8) << '\n';
  for (const Ageing& ageing : report.ageing) {
    out << padRight(std::string(openFamilies()[static_cast<std::size_t>(ageing.family)].caption),
                    22);
    if (!ageing.error.empty()) {
      out << "could not be read: " << terminalText(ageing.error) << '\n';
      continue;
    }
    for (const Ageing::Bucket& bucket : ageing.buckets)
      out << padLeft(money(bucket.amount), 18);
    out << padLeft(money(ageing.total), 18) << padLeft(std::to_string(ageing.count), 8)
        << (ageing.isWhole() ? "" : "  incomplete") << '\n';
  }
}

}  // namespace

void writeAttentionJson(std::ostream& out, const AttentionReport& report) {
  Json kinds = Json::array();
  for (const KindResult& kind : report.kinds)
    kinds.push_back(kindJson(kind));
  Json ageing = Json::array();
  for (const Ageing& family : report.ageing)
    ageing.push_back(ageingJson(family));
  Json document = {
      {"asOf", report.asOf.isoText()}, {"kinds", std::move(kinds)}, {"ageing", std::move(ageing)}};
  addUnopenedFiles(document);
  writeJson(out, document);
}

void writeAttentionCsv(std::ostream& out, const AttentionReport& report) {
  out << "Kind,What,Who,Date,Days,Amount\r\n";
  for (const KindResult& kind : report.kinds) {
    for (const AttentionRow& row : kind.rows) {
      out << entryOf(kind.kind).name << ',' << csvCell(row.what) << ',' << csvCell(row.who) << ','
          << (row.date ? row.date->isoText() : "") << ','
          << (row.days ? std::to_string(*row.days) : "") << ',' << row.amount.text() << "\r\n";
    }
  }
}

void writeAttentionText(std::ostream& out, const AttentionReport& report) {
  out << "What needs attention as of " << report.asOf.isoText() << '\n';
  for (const KindResult& kind : report.kinds)
    writeKindText(out, kind);
  writeAgeingText(out, report);
  if (const std::string warning = unopenedWarning(); !warning.empty())
    out << '\n' << terminalText(warning) << '\n';
}

}  // namespace dg
