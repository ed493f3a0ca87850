#pragma once

#include <QHeaderView>

#include "forms/grid.h"

namespace dg {

/// A table's horizontal header with a second row on top for the columns' group headings. A grid
/// without groups has one row. Heads that sort by a click are drawn as links are.
class GroupHeader : public QHeaderView {
  Q_OBJECT

 public:
  explicit GroupHeader(const Grid& grid, QWidget* parent = nullptr);

  bool hasGroups() const { return hasGroups_; }
  /// The width that the group heading over a column asks for; 0 where none begins.
  int groupWidth(int column) const;
  /// What a column that is not sorted by keeps free for the sort arrow.
  int arrowRoom(int section) const;

 protected:
  QSize sectionSizeFromContents(int section) const override;
  void paintSection(QPainter* painter, const QRect& rect, int section) const override;
  void initStyleOptionForIndex(QStyleOptionHeader* option, int section) const override;
  void paintEvent(QPaintEvent* event) override;
  bool viewportEvent(QEvent* event) override;

 private:
  struct Span {
    QString text;
    int left = 0;
    int right = 0;  ///< first pixel behind it
  };
  QList<Span> spans() const;
  int groupHeight() const;
  QFont groupFont() const;

  const Grid& grid_;
  bool hasGroups_ = false;
};

}  // namespace dg
