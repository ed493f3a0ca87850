#pragma once

#include <QWidget>

class QHBoxLayout;

namespace dg {

class GridView;

/// The line below a table. What sums a column of it ends where that column's figures end, however
/// wide the columns are; what else stands in the line keeps to the left.
class TableFoot : public QWidget {
  Q_OBJECT

 public:
  TableFoot(GridView& table, int column, QWidget* parent = nullptr);

  void addBeside(QWidget* widget);
  void addTotal(QWidget* widget);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void follow();

  GridView& table_;
  int column_;
  int beside_ = 0;
  QHBoxLayout* layout_;
};

}  // namespace dg
