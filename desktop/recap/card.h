#pragma once

#include <QWidget>

class QGridLayout;

namespace dg {

/// A block of a dashboard: a heading over rows, on a ground of its own with a fine edge.
class Card : public QWidget {
  Q_OBJECT

 public:
  explicit Card(QWidget* parent = nullptr);

  /// Where the block's widgets go.
  QGridLayout* grid() const { return grid_; }
  /// A hairline is drawn over each of these rows of the grid.
  void setRuledRows(int first, int last);
  /// A stronger line is drawn over this row, where another kind of figures begins.
  void setSectionRow(int row) { sectionRow_ = row; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QGridLayout* grid_;
  int firstRuled_ = 0;
  int lastRuled_ = -1;
  int sectionRow_ = -1;
};

}  // namespace dg
