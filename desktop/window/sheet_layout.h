#pragma once

#include <QGridLayout>

namespace dg {

/// The grid layout of a sheet or a frame. Rows and columns that end in a table or a text area take
/// the room there is; where there are none, it stays behind the last row and column.
class SheetLayout : public QGridLayout {
  Q_OBJECT

 public:
  explicit SheetLayout(QWidget* parent = nullptr);

  void addControl(QWidget* widget, int row, int column, int rowSpan, int columnSpan);
  /// To be called once, after the last control.
  void finish();
  int nextRow() const { return rows_; }
  int columns() const { return columns_; }

 private:
  void gatherButtons();
  void stretchColumn(int column, int share);

  int rows_ = 0;
  int columns_ = 0;
  bool growsDown_ = false;
  bool growsRight_ = false;
};

}  // namespace dg
