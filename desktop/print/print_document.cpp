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
  QString group;
  for (int column = 0; column < model.columnCount(); ++column) {
    const Grid::Column& source = model.grid().columns()[static_cast<std::size_t>(column)];
    // A group that begins over a hidden column goes on over the next visible one.
    if (!source.group.empty()) group = cellText(source.group);
    if (source.hidden) continue;
    table.columns.append({cellText(source.caption), group, alignsRight(source.kind)});
    visible.append(column);
    group.clear();
  }
  table.rows = model.rowCount();
  table.cell = [&model, visible](int row, int column) {
    return model.index(row, visible[column]).data().toString();
  };
  return table;
}

PrintDocument newPrintDocument(const QString& title, const QString& note,
                               QList<PrintTable> tables) {
  const Date moment = now();
  std::string made = figuresAsOf();
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
