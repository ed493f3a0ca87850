#include "desktop/print/print_document.h"

#include "desktop/grid/grid_model.h"
#include "desktop/window/text.h"
#include "platform/clock.h"
#include "shell/recap_sheet.h"

namespace dg {

namespace {

QString& storeName() {
  static QString name;
  return name;
}

}  // namespace

PrintTable tableOf(const GridModel& model, const QString& heading) {
  PrintTable table;
  table.heading = heading;
  QList<int> visible;
  for (const ShownColumn& column : shownColumns(model.grid())) {
    table.columns.append({cellText(column.caption), cellText(column.group), column.alignRight});
    visible.append(column.index);
  }
  table.rows = model.rowCount();
  table.cell = [&model, visible](int row, int column) {
    return model.index(row, visible[column]).data().toString();
  };
  return table;
}

PrintDocument newPrintDocument(const QString& title, const QString& note, QList<PrintTable> tables,
                               std::optional<Date> figuresOf) {
  const Date moment = now();
  std::string made = figuresAsOf(figuresOf);
  if (!made.empty()) made += "     ";
  made += "Printed " + moment.shortDateText() + " " + moment.longTimeText();
  return {storeName(), title, note, fromBytes(made), std::move(tables)};
}

QString printStore() {
  return storeName();
}

void setPrintStore(const QString& name) {
  storeName() = name;
}

}  // namespace dg
