#pragma once

#include <QFont>
#include <QList>
#include <QRectF>
#include <QString>

#include "desktop/print/print_document.h"

class QPainter;
class QPaintDevice;

namespace dg {

/// Breaks a document into pages and draws them. The letters shrink, down to a readable size, until
/// all columns stand beside each other; a cell that is still too wide is cut with "…". Titles and
/// lines above and below tables wrap.
class PrintLayout {
 public:
  /// `page`: the printable rectangle in the device's pixels, its corner at the origin. The document
  /// outlives the layout.
  PrintLayout(const PrintDocument& document, QPaintDevice& device, QSizeF page);

  int pageCount() const { return static_cast<int>(pages_.size()); }
  /// Draws a page, counted from 0.
  void paint(QPainter& painter, int page) const;

  /// Whether the widest table needs more than `width` pixels at full letter size.
  static bool isWiderThan(const PrintDocument& document, QPaintDevice& device, double width);

 private:
  /// Rows of one table on one page.
  struct Piece {
    int table;
    int firstRow;
    int rows;
    bool heading;  ///< the table begins here
    bool end;      ///< and ends here
  };
  using Page = QList<Piece>;

  void breakPages(double height);
  double headHeight(const PrintTable& table, bool heading) const;
  double paintTableHead(QPainter& painter, int table, double top, bool heading) const;
  void paintGroups(QPainter& painter, int table, double top) const;
  double linesHeight(const QStringList& lines) const;
  double paintLines(QPainter& painter, const QStringList& lines, double top) const;
  /// The title and the store at the top of a page, each wrapped in its part of the width.
  QRectF titleArea() const;
  QRectF storeArea() const;
  double noteHeight() const;
  void paintPageHead(QPainter& painter) const;
  void paintPageFoot(QPainter& painter, int page) const;
  void paintCell(QPainter& painter, const QRectF& cell, const QString& text, bool right) const;

  const PrintDocument& document_;
  QPaintDevice& device_;
  QSizeF size_;
  QFont font_;
  QFont bold_;
  double line_ = 0;    ///< height of a row
  double margin_ = 0;  ///< left and right of a cell's text
  double top_ = 0;     ///< where tables begin below the page heading
  QList<QList<double>> widths_;
  QList<Page> pages_;
};

}  // namespace dg
