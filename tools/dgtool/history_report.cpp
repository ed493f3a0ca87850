// The formats of "dgtool history".

#include <algorithm>
#include <array>
#include <map>

#include "export/csv.h"
#include "history/sparkline.h"
#include "platform/text.h"
#include "tools/dgtool/history_command.h"
#include "tools/dgtool/history_option.h"
#include "tools/dgtool/text_table.h"
#include "tools/dgtool/window_json.h"

namespace dg {

namespace {

constexpr std::size_t kLineWidth = 20;

Json changeJson(const std::optional<Change>& change) {
  if (!change) return nullptr;
  Json result = {{"from", change->from.day.isoText()}, {"amount", change->amount.text()}};
  if (change->count) result["count"] = *change->count;
  if (change->percent) result["percent"] = *change->percent;
  return result;
}

Json figureJson(const FigureHistory& figure) {
  Json result;
  if (figure.recap != nullptr) {
    result["index"] = figure.recap->index();
  } else {
    result["kind"] = figure.figure.name;
  }
  result["name"] = captionOf(figure.figure);
  Json& values = result["values"] = Json::array();
  for (const KeptValue& value : figure.values) {
    Json day = {{"day", value.day.isoText()}, {"amount", value.amount.text()}};
    if (value.count) day["count"] = *value.count;
    values.push_back(std::move(day));
  }
  const FigureChanges& changes = figure.changes;
  result["changes"] = {{"day", changeJson(changes.day)},
                       {"week", changeJson(changes.week)},
                       {"month", changeJson(changes.month)},
                       {"year", changeJson(changes.year)}};
  return result;
}

std::string percentCell(const std::optional<Change>& change) {
  if (!change || !change->percent) return "-";
  return (change->percent->starts_with('-') ? "" : "+") + *change->percent + "%";
}

std::string countedDays(std::size_t days) {
  return std::to_string(days) + (days == 1 ? " day" : " days");
}

}  // namespace

void writeHistoryJson(std::ostream& out, const HistoryReport& report) {
  Json days = Json::array();
  for (const Date day : report.days)
    days.push_back(day.isoText());
  Json figures = Json::array();
  for (const FigureHistory& figure : report.figures)
    figures.push_back(figureJson(figure));
  writeJson(out, {{"server", report.store.server},
                  {"directory", report.store.directory},
                  {"days", std::move(days)},
                  {"figures", std::move(figures)}});
}

void writeHistoryCsv(std::ostream& out, const HistoryReport& report) {
  std::map<Date, std::vector<std::string>> rows;
  std::vector<std::string> head{"Day"};
  for (const Date day : report.days)
    rows[day] = {day.isoText()};
  for (const FigureHistory& figure : report.figures) {
    const bool counted = figure.recap == nullptr;
    const std::string name = bytesFromUtf8(captionOf(figure.figure));
    head.push_back(csvCell(name));
    if (counted) head.push_back(csvCell(name + " Count"));
    for (const KeptValue& value : figure.values) {
      std::vector<std::string>& row = rows[value.day];
      row.resize(head.size() - (counted ? 2 : 1));
      if (row.front().empty()) row.front() = value.day.isoText();
      row.push_back(value.amount.text());
      if (counted) row.push_back(value.count ? std::to_string(*value.count) : "");
    }
  }
  const auto writeRow = [&](std::vector<std::string> row) {
    row.resize(head.size());
    for (std::size_t i = 0; i < row.size(); ++i)
      out << (i == 0 ? "" : ",") << row[i];
    out << "\r\n";
  };
  writeRow(head);
  for (const auto& [day, row] : rows)
    writeRow(row);
}

void writeHistoryText(std::ostream& out, const HistoryReport& report) {
  out << storeName(report.store);
  if (report.days.empty()) {
    out << ": no day is kept\n";
    return;
  }
  const Date first = report.days.front();
  const Date last = report.days.back();
  out << ": " << countedDays(report.days.size()) << ", " << first.isoText() << " to "
      << last.isoText() << "\n\n";
  TextTable table;
  table.add({"", "Amount", "Count", "Change", "", "Week", "Month", "Year", "Day"});
  for (const FigureHistory& figure : report.figures) {
    const FigureChanges& changes = figure.changes;
    const std::string name = terminalText(bytesFromUtf8(captionOf(figure.figure)));
    if (figure.values.empty()) {
      table.add({name, "-"});
      continue;
    }
    const KeptValue& value = figure.values.back();
    table.add({name, amountText(value.amount, figure.kind()),
               value.count ? std::to_string(*value.count) : "",
               changes.day ? changeText(changes.day->amount, figure.kind()) : "-",
               percentCell(changes.day), percentCell(changes.week), percentCell(changes.month),
               percentCell(changes.year), value.day == last ? "" : value.day.isoText()});
  }
  table.write(out, [&](std::size_t row) {
    return row == 0 ? std::string()
                    : sparkline(report.figures[row - 1].values, first, last, kLineWidth);
  });
}

}  // namespace dg
