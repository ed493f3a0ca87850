#include "desktop/grid/grid_actions.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QFileInfo>
#include <QHash>
#include <QMenu>
#include <algorithm>

#include "desktop/grid/export_files.h"
#include "desktop/grid/grid_export.h"
#include "desktop/grid/grid_model.h"
#include "desktop/grid/grid_view.h"
#include "desktop/print/printing.h"
#include "desktop/window/text.h"
#include "forms/form_bands.h"
#include "shell/view.h"

namespace dg {

namespace {

/// A menu item's text with a key beside it that its window, and not the item, listens to.
QString withKey(const QString& text, const QKeySequence& key) {
  return text + u'\t' + key.toString(QKeySequence::NativeText);
}

}  // namespace

GridActions::GridActions(GridView& view, const Form& form, QObject* parent)
    : QObject(parent),
      view_(view),
      form_(form),
      exportMenu_(new QMenu(tr("&Export"), &view)),
      printMenu_(new QMenu(tr("&Print"), &view)),
      contextMenu_(new QMenu(&view)) {
  buildExportMenu();
  buildPrintMenu();
  buildContextMenu();
  view.setContextMenuPolicy(Qt::CustomContextMenu);
  connect(&view, &QWidget::customContextMenuRequested, this, [this](const QPoint& position) {
    contextMenu_->popup(view_.viewport()->mapToGlobal(position));
  });
}

void GridActions::buildExportMenu() {
  exportMenu_->addAction(withKey(tr("Excel &Workbook (XLSX)..."), kExportKey), this,
                         &GridActions::exportWorkbook);
  exportMenu_->addAction(tr("&CSV File..."), this,
                         [this] { askAndExport("csv", tr("CSV file (*.csv)")); });
  exportMenu_->addAction(tr("P&DF File..."), this,
                         [this] { askAndExport("pdf", tr("PDF file (*.pdf)")); });
}

void GridActions::buildPrintMenu() {
  printMenu_->addAction(withKey(tr("&Print..."), QKeySequence::Print), this, &GridActions::print);
  printMenu_->addAction(tr("Print Pre&view..."), this, &GridActions::preview);
}

void GridActions::buildContextMenu() {
  open_ = contextMenu_->addAction(tr("&Open"), &view_, &GridView::openCurrentRow);
  open_->setVisible(view_.grid().hasClickAction());
  contextMenu_->setDefaultAction(open_);
  contextMenu_->addSeparator();

  copyCells_ = contextMenu_->addAction(tr("&Copy"), this, [this] { copy(false); });
  copyCells_->setShortcut(QKeySequence::Copy);
  copyAll_ = contextMenu_->addAction(tr("Copy with &Headings"), this, [this] { copy(true); });
  copyAll_->setShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_C);
  for (QAction* action : {copyCells_, copyAll_}) {
    action->setShortcutContext(Qt::WidgetShortcut);
    view_.addAction(action);
  }
  contextMenu_->addAction(tr("Select &All"), &view_, &QTableView::selectAll);
  contextMenu_->addSeparator();

  sort_ =
      contextMenu_->addAction(tr("&Sort by This Column"), &view_, &GridView::sortByCurrentColumn);
  contextMenu_->addAction(withKey(tr("&Find..."), QKeySequence::Find), this,
                          &GridActions::findRequested);
  columnMenu_ = contextMenu_->addMenu(withKey(tr("&Go to Column"), kColumnKey));
  contextMenu_->addAction(tr("&Reset Column Widths"), &view_, &GridView::resetColumnWidths);
  contextMenu_->addSeparator();
  contextMenu_->addMenu(exportMenu_);
  contextMenu_->addMenu(printMenu_);

  connect(contextMenu_, &QMenu::aboutToShow, this, &GridActions::update);
  connect(columnMenu_, &QMenu::aboutToShow, this, [this] { fillColumnMenu(*columnMenu_); });
}

void GridActions::update() const {
  const bool rows = view_.gridModel().rowCount() > 0;
  const bool selected = view_.selectionModel()->hasSelection();
  const bool current = view_.currentIndex().isValid();
  open_->setVisible(view_.grid().hasClickAction());
  open_->setEnabled(current);
  copyCells_->setEnabled(selected);
  copyAll_->setEnabled(selected);
  sort_->setEnabled(rows && current && view_.grid().onHeadClick);
}

void GridActions::fillColumnMenu(QMenu& menu) const {
  menu.clear();
  for (const ShownColumn& column : shownColumns(view_.grid())) {
    QString title = cellText(column.title).simplified();
    menu.addAction(title.replace(u'&', QStringLiteral("&&")), &view_,
                   [this, index = column.index] { view_.scrollToColumn(index); });
  }
}

QString GridActions::title() const {
  const bool isView = dynamic_cast<const View*>(&form_) != nullptr;
  return cellText(isView ? gridTitle(form_, view_.grid()) : form_.caption()).simplified();
}

PrintDocument GridActions::document() const {
  view_.synchronize();
  const GridModel& model = view_.gridModel();
  QStringList notes;
  if (form_.incomplete()) notes.append(tr("Could not be read completely: see the log."));
  if (!model.filter().isEmpty()) notes.append(tr("Rows with \"%1\"").arg(model.filter()));
  PrintTable table = tableOf(model, {});
  for (const std::string& line : linesAboveGrids(form_))
    table.above.append(cellText(line));
  for (const std::string& line : linesBelowGrid(form_, view_.grid()))
    table.below.append(cellText(line));
  return newPrintDocument(title(), notes.join(QStringLiteral("   ")), {table}, momentOf(form_));
}

void GridActions::copy(bool withHeadings) const {
  const QString text = selectionText(view_, withHeadings);
  if (!text.isEmpty()) QApplication::clipboard()->setText(text);
}

void GridActions::exportWorkbook() const {
  askAndExport(QStringLiteral("xlsx"), tr("Excel workbook (*.xlsx)"));
}

void GridActions::goToColumn() const {
  fillColumnMenu(*columnMenu_);
  columnMenu_->popup(view_.viewport()->mapToGlobal(QPoint()));
}

void GridActions::print() const {
  printDocument(document(), view_.window());
}

void GridActions::preview() const {
  previewDocument(document(), view_.window());
}

void GridActions::askAndExport(const QString& suffix, const QString& kind) const {
  const QString file = askForExportFile(view_.window(), title(), suffix, kind);
  if (!file.isEmpty()) exportTo(file);
}

bool GridActions::exportTo(const QString& file) const {
  view_.synchronize();
  if (QFileInfo(file).suffix().toLower() == QStringLiteral("pdf")) {
    return exported(view_.window(), file, writePdf(document(), file));
  }
  const QString problem = exportGrid(view_.gridModel(), form_, title(), file);
  return exported(view_.window(), file, problem.isEmpty(), problem);
}

QString selectionText(const GridView& view, bool withHeadings) {
  const QItemSelectionModel& selection = *view.selectionModel();
  QList<int> rows;
  QList<int> columns;
  for (const QItemSelectionRange& range : selection.selection()) {
    for (int row = range.top(); row <= range.bottom(); ++row)
      rows.append(row);
    for (int column = range.left(); column <= range.right(); ++column)
      columns.append(column);
  }
  for (QList<int>* list : {&rows, &columns}) {
    std::sort(list->begin(), list->end());
    list->erase(std::unique(list->begin(), list->end()), list->end());
  }
  columns.removeIf([&view](int column) { return view.isColumnHidden(column); });
  if (rows.isEmpty() || columns.isEmpty()) return {};

  const GridModel& model = view.gridModel();
  const bool gaps = selection.selection().size() > 1;
  QString text;
  const auto addLine = [&](const auto& cellOf) {
    for (int i = 0; i < columns.size(); ++i) {
      if (i > 0) text += u'\t';
      text += cellOf(columns[i]);
    }
    text += u'\n';
  };
  if (withHeadings) {
    QHash<int, QString> titles;
    for (const ShownColumn& column : shownColumns(view.grid()))
      titles.insert(column.index, cellText(column.title).simplified());
    addLine([&](int column) { return titles.value(column); });
  }
  for (const int row : rows) {
    addLine([&](int column) {
      const QModelIndex index = model.index(row, column);
      return gaps && !selection.isSelected(index) ? QString() : index.data().toString();
    });
  }
  text.chop(1);
  return text;
}

}  // namespace dg
