#pragma once

#include <QList>
#include <QString>
#include <functional>
#include <optional>

#include "shell/recap_sheet.h"

namespace dg {

class GridModel;

/// A column of a printed table.
struct PrintColumn {
  QString caption;
  QString group;  ///< heading over this column and those after it, up to the next
  bool alignRight = false;
};

/// A table to print. Cells are asked for when a page is drawn.
struct PrintTable {
  QStringList above;  ///< lines over it, such as a document's customer and machine; they wrap
  QStringList below;  ///< lines under it, such as its totals
  QString heading;
  QList<PrintColumn> columns;
  int rows = 0;
  std::function<QString(int row, int column)> cell;
};

/// What goes on paper: tables under a page heading.
struct PrintDocument {
  QString store;  ///< whose figures these are, at the head of each page
  QString title;
  QString note;  ///< under the title, such as a filter in force; empty for none
  QString made;  ///< the moment of the figures, then that of printing; at the foot
  QList<PrintTable> tables;
  bool fillsWidth = false;  ///< tables are drawn as wide as the page, letters and all
};

/// The visible columns and the rows on show of a grid. The model outlives the table.
PrintTable tableOf(const GridModel& model, const QString& heading);

/// A document of the store, made now, of figures of that moment.
PrintDocument newPrintDocument(const QString& title, const QString& note, QList<PrintTable> tables,
                               std::optional<Date> figuresOf = figuresMoment());

/// The store's name that documents carry; set once the main window knows it.
QString printStore();
void setPrintStore(const QString& name);

}  // namespace dg
