#pragma once

#include <QList>
#include <QString>
#include <functional>

namespace dg {

class GridModel;

/// A column of a printed table.
struct ReportColumn {
  QString caption;
  QString group;  ///< heading over this column and those after it, up to the next
  bool alignRight = false;
};

/// A table to print. Cells are asked for when a page is drawn.
struct ReportTable {
  QString heading;
  QList<ReportColumn> columns;
  int rows = 0;
  std::function<QString(int row, int column)> cell;
};

/// What goes on paper: tables under a page heading.
struct Report {
  QString store;  ///< whose figures these are, at the head of each page
  QString title;
  QString note;  ///< under the title, such as a filter in force; empty for none
  QString made;  ///< date and time, at the foot
  QList<ReportTable> tables;
};

/// The visible columns and the rows on show of a grid. The model outlives the table.
ReportTable tableOf(const GridModel& model, const QString& heading);

/// A report of the store, made now.
Report newReport(const QString& title, const QString& note, QList<ReportTable> tables);

/// The store's name that reports carry; set once the main window knows it.
QString reportStore();
void setReportStore(const QString& name);

}  // namespace dg
