#include "desktop/grid/grid_sums.h"

#include <QCoreApplication>
#include <QStringList>

#include "desktop/grid/grid_model.h"
#include "desktop/grid/grid_view.h"
#include "desktop/window/text.h"
#include "export/number_look.h"
#include "platform/values/format.h"

namespace dg {

namespace {

/// Numbers as they are shown, added as such.
struct Sum {
  double total = 0;
  int count = 0;
  bool money = false;

  void add(const std::string& cell) {
    const std::optional<double> number = shownNumber(cell);
    if (!number) return;
    total += *number;
    ++count;
    money = money || cell.find('$') != std::string::npos;
  }
  QString shown(double value) const {
    return fromBytes(Format(value, money ? "$#,###,##0.00" : "#,###,##0.##"));
  }
};

QString tr(const char* text) {
  return QCoreApplication::translate("GridSums", text);
}

}  // namespace

QString selectionSummary(const GridView& view) {
  const Grid& grid = view.grid();
  Sum sum;
  for (const QModelIndex& index : view.selectionModel()->selectedIndexes()) {
    const ColumnKind kind = grid.columns()[static_cast<std::size_t>(index.column())].kind;
    const int row = view.gridModel().gridRow(index.row());
    if (view.isColumnHidden(index.column()) || !alignsRight(kind) || row < 0 || row >= grid.Rows())
      continue;
    sum.add(grid.CellValue(index.column(), row));
  }
  if (sum.count < 2) return {};
  return tr("Sum %1   Average %2   Count %3")
      .arg(sum.shown(sum.total), sum.shown(sum.total / sum.count))
      .arg(sum.count);
}

QString shownSums(const GridView& view) {
  const Grid& grid = view.grid();
  QStringList parts;
  for (const ShownColumn& column : shownColumns(grid)) {
    if (grid.columns()[static_cast<std::size_t>(column.index)].kind != ColumnKind::kMoney) continue;
    Sum sum;
    for (const int row : view.gridModel().shownRows()) {
      if (row < grid.Rows()) sum.add(grid.CellValue(column.index, row));
    }
    parts.append(cellText(column.title).simplified() + u' ' + sum.shown(sum.total));
  }
  return parts.join(QStringLiteral(", "));
}

}  // namespace dg
