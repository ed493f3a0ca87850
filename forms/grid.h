#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "forms/control.h"
#include "platform/values/variant.h"

namespace dg {

/// What a column holds: decides how it is aligned and how an export types its cells.
enum class ColumnKind { kText, kNumber, kMoney, kPercent, kDate };

/// One column of a grid as data. Views list theirs in a constexpr table.
struct ColumnSpec {
  std::string_view name;          ///< how the logic addresses it
  std::string_view caption = {};  ///< what the user sees; empty: the name
  ColumnKind kind = ColumnKind::kText;
  std::string_view mask = {};   ///< applied to numbers; kCurrencyStyle: the grid's own style
  std::string_view group = {};  ///< heading over this column and those after it, up to the next
  bool hidden = false;
  bool button = false;  ///< its cells carry the button of the grid's click action
  /// For a hidden sort key: name of the column that the user sees sorted by it.
  std::string_view keyOf = {};
};

/// As a ColumnSpec's mask: the grid's own currency style, "$1,234.50" and "($1,234.50)".
inline constexpr std::string_view kCurrencyStyle = "CURRENCY";

/// A table of displayed texts with a current row.
///
/// Rows count from 0 on screen; a row's bookmark is its place at the moment. Cells are what the
/// user sees: a number goes through its column's mask, a text loses its trailing blanks and NULs.
class Grid final : public Control {
 public:
  struct Column {
    std::string name;
    std::string caption;
    std::string group;
    ColumnKind kind = ColumnKind::kText;
    std::string mask;
    bool hidden = false;
    bool button = false;
    std::string keyOf;
  };
  using Row = std::vector<std::string>;

  Grid(std::string name, std::span<const ColumnSpec> columns, std::string heading = {});

  const std::string& heading() const { return heading_; }
  void setHeading(std::string heading);

  // --- Columns
  const std::vector<Column>& columns() const { return columns_; }
  int Cols() const { return static_cast<int>(columns_.size()); }
  /// The column's position, found by name, then by caption, with regard to case. Raises 9.
  int columnIndex(std::string_view nameOrCaption) const;
  /// The position itself when it is one; raises 9.
  int columnIndex(int index) const;

  // --- Rows
  int Rows() const { return static_cast<int>(rows_.size()); }
  const std::vector<Row>& rows() const { return rows_; }
  /// Grows whenever rows or cells have changed, but not when only the current row has.
  std::uint64_t revision() const { return revision_; }
  void RemoveAll();
  /// Appends an empty row and makes it the current one. It stays, whatever happens next.
  void AddNew();
  /// Appends a row from tab-separated cells.
  void AddItem(std::string_view cells);
  /// Ends the editing of a row.
  void Update();
  void MoveFirst();
  void MoveLast();
  /// The current row, -1 when there is none.
  int Bookmark() const { return current_; }
  /// Makes a row the current one, -1 for none. Raises 9.
  void setBookmark(int row);
  void removeRow(int row);
  void removeRows(const std::vector<int>& doomed);
  /// Removes the selected rows.
  void DeleteSelected();
  /// Puts all rows in a new order, as SortGrid found it. `order` holds each old row once, else 5.
  /// The current row and the selection go with their rows.
  void reorder(const std::vector<int>& order);

  /// Whether changes show at once. While off, `changed` is held back; turning it on emits it once
  /// for all that has changed.
  bool Redraw() const { return redraw_; }
  void setRedraw(bool redraw);

  // --- Cells
  /// Sets a cell of the current row. Raises 9 for an unknown column, 91 without a current row.
  template <class Key>
  void set(Key column, const Variant& value) {
    setCell(columnIndex(column), value);
  }
  /// A cell's text by column and row; raises 9.
  template <class Key>
  const std::string& CellValue(Key column, int bookmark) const {
    return cell(columnIndex(column), bookmark);
  }

  // --- The user
  std::vector<int> SelBookmarks;  ///< selected rows, where a grid allows several
  bool multiSelect = false;

  /// Rows on show where the user has filtered them, in their order; empty: all of them.
  std::function<std::vector<int>()> filteredRows;
  std::vector<int> rowsOnShow() const;
  /// Whether a click on a column's head sorts; empty: each one's does, where there is a head click.
  std::function<bool(int column)> headSorts;
  /// Whether a click on a row leads anywhere; empty: each one's does, where there is a row click.
  std::function<bool(int row)> rowOpens;

  std::function<void(int column)> onHeadClick;
  std::function<void(int row)> onRowClick;  ///< a click on a row, or on its button column
  std::function<void(int row)> onDblClick;
  bool hasClickAction() const { return static_cast<bool>(onRowClick); }
  void headClick(int column);
  void rowClick(int row);
  void dblClick(int row);

  /// After a head click: the column that the rows stand sorted by and whether descending; -1 when
  /// they stand as they were loaded. For the sort arrow.
  int sortedColumn() const { return sortedColumn_; }
  bool sortedDescending() const { return sortedDescending_; }
  void markSorted(int column, bool descending);

 private:
  void setCell(int column, const Variant& value);
  const std::string& cell(int column, int row) const;
  /// Follows rows to their new places, -1 for those that are gone.
  void moveSelection(const std::vector<int>& newPlace);
  void notify();
  void notifyRows();

  std::string heading_;
  std::vector<Column> columns_;
  std::vector<Row> rows_;
  std::uint64_t revision_ = 0;
  int current_ = -1;
  bool redraw_ = true;
  bool pending_ = false;  // something has changed while redraw was off
  int sortedColumn_ = -1;
  bool sortedDescending_ = false;
};

}  // namespace dg
