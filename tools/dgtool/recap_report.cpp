// The formats of "dgtool recap".

#include <algorithm>

#include "export/csv.h"
#include "export/number_look.h"
#include "export/workbook.h"
#include "history/figure_history.h"
#include "shell/splash.h"
#include "tools/dgtool/recap_command.h"
#include "tools/dgtool/text_table.h"
#include "tools/dgtool/window_json.h"

namespace dg {

namespace {

constexpr std::size_t kNameWidth = 24;

std::string covered(const GroupFigure& total, std::size_t stores) {
  return std::to_string(total.stores) + " of " + std::to_string(stores);
}

const GroupFigure& of(const GroupRecap& group, const RecapFigure& figure) {
  return group[static_cast<std::size_t>(figure.index())];
}

std::string shortName(const StoreRecap& store) {
  return terminalText(store.error.empty() ? store.name.substr(0, kNameWidth) : "not read");
}

Json storeJson(const StoreRecap& store) {
  Json json = {{"directory", jsonText(store.directory)}, {"name", jsonText(store.name)}};
  Json& recap = json["recap"] = Json::array();
  if (!store.error.empty()) {
    json["error"] = jsonText(store.error);
    return json;
  }
  if (!store.leftOut.empty()) json["leftOut"] = jsonText(store.leftOut);
  for (int index = 0; index < kRecapLabels; ++index) {
    const StoreFigure& figure = store.of(recapFigure(static_cast<Figure>(index)));
    Json entry = {{"index", index}, {"caption", jsonText(figure.caption)}};
    entry["amount"] = figure.amount ? Json(figure.amount->text()) : Json(nullptr);
    entry["error"] = figure.error;
    if (figure.incomplete) entry["incomplete"] = true;
    recap.push_back(std::move(entry));
  }
  return json;
}

std::string numberFormat(const RecapFigure& figure) {
  return figure.kind == FigureKind::kRate ? "0.00%" : "$#,##0.00";
}

}  // namespace

void writeRecapJson(std::ostream& out, const std::vector<StoreRecap>& stores) {
  Json list = Json::array();
  for (const StoreRecap& store : stores)
    list.push_back(storeJson(store));
  const GroupRecap group = groupRecap(stores);
  Json total = Json::array();
  for (int index = 0; index < kRecapLabels; ++index) {
    const GroupFigure& figure = group[static_cast<std::size_t>(index)];
    total.push_back({{"index", index},
                     {"amount", figure.amount ? Json(figure.amount->text()) : Json(nullptr)},
                     {"stores", figure.stores}});
  }
  writeJson(out, {{"stores", std::move(list)}, {"total", std::move(total)}});
}

void writeRecapText(std::ostream& out, const std::vector<StoreRecap>& stores) {
  TextTable table;
  std::vector<std::string> head{""};
  std::vector<std::string> names{""};
  for (const StoreRecap& store : stores) {
    head.push_back(terminalText(store.directory));
    names.push_back(shortName(store));
  }
  head.insert(head.end(), {"Total", "Stores"});
  table.add(head);
  table.add(names);
  const GroupRecap group = groupRecap(stores);
  for (const RecapFigure& figure : recapFigures()) {
    std::vector<std::string> row{std::string(figure.name)};
    for (const StoreRecap& store : stores) {
      const StoreFigure& own = store.of(figure);
      row.push_back(!store.error.empty() ? "-"
                                         : terminalText(own.caption) + (own.incomplete ? "*" : ""));
    }
    const GroupFigure& total = of(group, figure);
    row.push_back(total.amount ? amountText(*total.amount, figure.kind) : "-");
    row.push_back(covered(total, stores.size()));
    table.add(std::move(row));
  }
  table.write(out);
  for (const StoreRecap& store : stores) {
    if (!store.error.empty()) {
      out << '\n'
          << terminalText(store.directory) << " could not be read: " << terminalText(store.error)
          << '\n';
      continue;
    }
    if (!store.leftOut.empty()) {
      out << '\n'
          << terminalText(store.directory) << " counts in no total. " << terminalText(store.leftOut)
          << '\n';
    }
    for (const RecapFigure& figure : recapFigures()) {
      if (store.of(figure).incomplete) {
        out << "\n* " << terminalText(store.directory) << ", " << figure.name
            << ": could not be read completely, and counts in no total\n";
      }
    }
  }
}

void writeRecapCsv(std::ostream& out, const std::vector<StoreRecap>& stores) {
  out << "Figure";
  for (const StoreRecap& store : stores)
    out << ',' << csvCell(store.directory);
  out << ",Total,Stores\r\nStore";
  for (const StoreRecap& store : stores)
    out << ',' << csvCell(store.error.empty() ? store.name : "not read: " + store.error);
  out << ",,\r\n";
  const GroupRecap group = groupRecap(stores);
  for (const RecapFigure& figure : recapFigures()) {
    out << figure.name;
    for (const StoreRecap& store : stores) {
      const StoreFigure& own = store.of(figure);
      out << ',' << (own.amount ? own.amount->text() : csvCell(own.caption));
    }
    const GroupFigure& total = of(group, figure);
    out << ',' << (total.amount ? total.amount->text() : "") << ',' << total.stores << "\r\n";
  }
}

std::string recapWorkbook(const std::vector<StoreRecap>& stores) {
  Workbook book;
  book.setTitle(std::string(kProgramName) + " - Stores");
  book.addSheet("Stores");
  constexpr std::size_t kFigureWidth = 22;
  constexpr std::size_t kAmountWidth = 18;
  const std::size_t totalColumn = stores.size() + 1;
  book.fitColumn(0, kFigureWidth);
  std::size_t column = 0;
  for (const StoreRecap& store : stores) {
    const bool read = store.error.empty();
    book.text(0, ++column, store.directory, CellLook::kBold);
    book.text(1, column, read ? store.name : "not read: " + store.error,
              read ? CellLook::kBold : CellLook::kFailure);
    book.fitColumn(column, std::max(kAmountWidth, store.name.size()));
  }
  book.text(0, totalColumn, "Total", CellLook::kBold);
  book.fitColumn(totalColumn, kAmountWidth);
  book.text(0, totalColumn + 1, "Stores", CellLook::kBold);
  const GroupRecap group = groupRecap(stores);
  std::size_t row = 1;
  for (const RecapFigure& figure : recapFigures()) {
    book.text(++row, 0, figure.name, CellLook::kBold);
    column = 0;
    for (const StoreRecap& store : stores) {
      const StoreFigure& own = store.of(figure);
      ++column;
      if (own.amount) {
        book.number(row, column, own.amount->toDouble(), numberFormat(figure));
      } else {
        book.text(row, column, own.caption, own.error ? CellLook::kFailure : CellLook::kPlain);
      }
    }
    const GroupFigure& total = of(group, figure);
    if (total.amount) book.number(row, totalColumn, total.amount->toDouble(), numberFormat(figure));
    book.text(row, totalColumn + 1, covered(total, stores.size()), CellLook::kPlain);
  }
  return book.finish();
}

}  // namespace dg
