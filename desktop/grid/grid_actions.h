#pragma once

#include <QObject>

#include "desktop/print/print_document.h"
#include "forms/form.h"

class QAction;
class QMenu;

namespace dg {

class GridView;

/// What a user can do with the rows of a grid: copy, sort, find a column, export, print. One set
/// of actions behind the context menu, the buttons over the grid and the shortcuts.
class GridActions : public QObject {
  Q_OBJECT

 public:
  /// `form`: the window that the grid stands in.
  GridActions(GridView& view, const Form& form, QObject* parent);

  QMenu* exportMenu() const { return exportMenu_; }
  QMenu* printMenu() const { return printMenu_; }
  QMenu* contextMenu() const { return contextMenu_; }

  /// Keys that every window with a table has, for these two.
  static constexpr QKeyCombination kExportKey = Qt::CTRL | Qt::Key_E;
  static constexpr QKeyCombination kColumnKey = Qt::CTRL | Qt::Key_G;
  /// Asks for a file, and writes the workbook.
  void exportWorkbook() const;
  /// Shows the list of columns over the table.
  void goToColumn() const;

  /// Enables what can be done now, before a menu shows.
  void update() const;
  void copy(bool withHeadings) const;
  void print() const;
  void preview() const;

  /// Writes the rows on show to a file; what kind of file its ending says: csv, xlsx or pdf. Shows
  /// a message when it cannot be written, and returns whether it was.
  bool exportTo(const QString& file) const;

 Q_SIGNALS:
  void findRequested();

 private:
  void buildExportMenu();
  void buildPrintMenu();
  void buildContextMenu();
  void fillColumnMenu(QMenu& menu) const;
  void askAndExport(const QString& suffix, const QString& kind) const;

  PrintDocument document() const;
  /// What the grid is called on paper and in file names: a document's window by its own caption.
  QString title() const;

  GridView& view_;
  const Form& form_;
  QMenu* exportMenu_;
  QMenu* printMenu_;
  QMenu* contextMenu_;
  QMenu* columnMenu_ = nullptr;
  QAction* open_ = nullptr;
  QAction* copyCells_ = nullptr;
  QAction* copyAll_ = nullptr;
  QAction* sort_ = nullptr;
};

/// The selected cells as lines of tab-separated cells, hidden columns left out; where the selection
/// has gaps, empty cells stand.
QString selectionText(const GridView& view, bool withHeadings);

}  // namespace dg
