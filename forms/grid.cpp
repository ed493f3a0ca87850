#include "forms/grid.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "platform/text.h"
#include "platform/values/format.h"
#include "platform/values/run_time_error.h"

namespace dg {

namespace {

/// A number as its column shows it.
template <class Number>
std::string throughMask(const Number& value, const std::string& mask) {
  if (mask.empty()) return toText(Variant(value));
  if (mask == kCurrencyStyle) {
    if constexpr (std::is_same_v<Number, std::int32_t>) {
      return formatCurrencyStyle(Currency(value));
    } else {
      return formatCurrencyStyle(value);
    }
  }
  return Format(value, mask);
}

struct CellText {
  const std::string& mask;

  std::string operator()(std::monostate) const { return {}; }
  std::string operator()(std::int32_t value) const { return throughMask(value, mask); }
  std::string operator()(double value) const { return throughMask(value, mask); }
  std::string operator()(const Currency& value) const { return throughMask(value, mask); }
  std::string operator()(const Date& value) const { return toText(Variant(value)); }
  std::string operator()(const std::string& value) const { return std::string(shown(value)); }
};

bool isRow(int row, std::size_t count) {
  return row >= 0 && static_cast<std::size_t>(row) < count;
}

}  // namespace

Grid::Grid(std::string name, std::span<const ColumnSpec> columns, std::string heading)
    : Control(std::move(name)), heading_(std::move(heading)) {
  columns_.reserve(columns.size());
  for (const ColumnSpec& spec : columns) {
    const std::string_view caption = spec.caption.empty() ? spec.name : spec.caption;
    columns_.push_back({.name = std::string(spec.name),
                        .caption = std::string(caption),
                        .group = std::string(spec.group),
                        .kind = spec.kind,
                        .mask = std::string(spec.mask),
                        .hidden = spec.hidden,
                        .button = spec.button,
                        .keyOf = std::string(spec.keyOf)});
  }
}

void Grid::setHeading(std::string heading) {
  heading_ = std::move(heading);
  notify();
}

int Grid::columnIndex(std::string_view nameOrCaption) const {
  for (const auto member : {&Column::name, &Column::caption}) {
    for (std::size_t index = 0; index < columns_.size(); ++index) {
      if (columns_[index].*member == nameOrCaption) return static_cast<int>(index);
    }
  }
  throw RunTimeError(kSubscriptOutOfRange);
}

int Grid::columnIndex(int index) const {
  if (!isRow(index, columns_.size())) throw RunTimeError(kSubscriptOutOfRange);
  return index;
}

void Grid::RemoveAll() {
  rows_.clear();
  SelBookmarks.clear();
  current_ = -1;
  sortedColumn_ = -1;
  notifyRows();
}

void Grid::AddNew() {
  rows_.emplace_back(columns_.size());
  current_ = Rows() - 1;
  sortedColumn_ = -1;
  notifyRows();
}

void Grid::AddItem(std::string_view cells) {
  Row row(columns_.size());
  for (std::string& cell : row) {
    const std::size_t end = std::min(cells.find('\t'), cells.size());
    cell = shown(cells.substr(0, end));
    cells.remove_prefix(std::min(end + 1, cells.size()));
  }
  rows_.push_back(std::move(row));
  sortedColumn_ = -1;
  notifyRows();
}

void Grid::Update() {
  notify();
}

void Grid::MoveFirst() {
  setBookmark(rows_.empty() ? -1 : 0);
}

void Grid::MoveLast() {
  setBookmark(Rows() - 1);
}

void Grid::setBookmark(int row) {
  if (row != -1 && !isRow(row, rows_.size())) throw RunTimeError(kSubscriptOutOfRange);
  current_ = row;
  notify();
}

void Grid::removeRow(int row) {
  if (!isRow(row, rows_.size())) throw RunTimeError(kSubscriptOutOfRange);
  removeRows({row});
}

void Grid::DeleteSelected() {
  removeRows(SelBookmarks);
}

void Grid::removeRows(const std::vector<int>& doomed) {
  constexpr int kGone = -1;
  std::vector<int> newPlace(rows_.size());
  for (const int row : doomed) {
    if (isRow(row, rows_.size())) newPlace[static_cast<std::size_t>(row)] = kGone;
  }
  std::size_t kept = 0;
  int current = current_;
  for (std::size_t row = 0; row < rows_.size(); ++row) {
    if (newPlace[row] == kGone) {
      if (static_cast<int>(row) < current_) --current;
      continue;
    }
    newPlace[row] = static_cast<int>(kept);
    if (kept != row) rows_[kept] = std::move(rows_[row]);
    ++kept;
  }
  rows_.resize(kept);
  current_ = std::min(current, Rows() - 1);
  moveSelection(newPlace);
  notifyRows();
}

void Grid::moveSelection(const std::vector<int>& newPlace) {
  std::vector<int> selection;
  for (const int row : SelBookmarks) {
    if (!isRow(row, newPlace.size())) continue;
    const int place = newPlace[static_cast<std::size_t>(row)];
    if (place != -1) selection.push_back(place);
  }
  SelBookmarks = std::move(selection);
}

void Grid::reorder(const std::vector<int>& order) {
  std::vector<int> newPlace(rows_.size(), -1);
  if (order.size() != rows_.size()) throw RunTimeError(kInvalidProcedureCall);
  for (std::size_t place = 0; place < order.size(); ++place) {
    const int old = order[place];
    if (!isRow(old, rows_.size()) || newPlace[static_cast<std::size_t>(old)] != -1) {
      throw RunTimeError(kInvalidProcedureCall);
    }
    newPlace[static_cast<std::size_t>(old)] = static_cast<int>(place);
  }

  std::vector<Row> rows(rows_.size());
  for (std::size_t old = 0; old < rows_.size(); ++old) {
    rows[static_cast<std::size_t>(newPlace[old])] = std::move(rows_[old]);
  }
  rows_ = std::move(rows);
  if (current_ != -1) current_ = newPlace[static_cast<std::size_t>(current_)];
  moveSelection(newPlace);
  notifyRows();
}

void Grid::setRedraw(bool redraw) {
  redraw_ = redraw;
  if (redraw_ && std::exchange(pending_, false)) changed.emit();
}

void Grid::headClick(int column) {
  if (!isRow(column, columns_.size()) || !onHeadClick) return;
  dispatchEvent([&] { onHeadClick(column); });
}

void Grid::rowClick(int row) {
  if (!isRow(row, rows_.size())) return;
  setBookmark(row);
  if (onRowClick) dispatchEvent([&] { onRowClick(row); });
}

void Grid::dblClick(int row) {
  if (!isRow(row, rows_.size())) return;
  setBookmark(row);
  if (onDblClick) dispatchEvent([&] { onDblClick(row); });
}

void Grid::markSorted(int column, bool descending) {
  sortedColumn_ = column;
  sortedDescending_ = descending;
  notify();
}

void Grid::setCell(int column, const Variant& value) {
  if (current_ == -1) throw RunTimeError(kObjectNotSet);
  const auto index = static_cast<std::size_t>(column);
  rows_[static_cast<std::size_t>(current_)][index] =
      std::visit(CellText{columns_[index].mask}, value);
  notifyRows();
}

const std::string& Grid::cell(int column, int row) const {
  if (!isRow(row, rows_.size())) throw RunTimeError(kSubscriptOutOfRange);
  return rows_[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
}

void Grid::notifyRows() {
  ++revision_;
  notify();
}

void Grid::notify() {
  if (redraw_) {
    changed.emit();
  } else {
    pending_ = true;
  }
}

std::vector<int> Grid::rowsOnShow() const {
  if (filteredRows) return filteredRows();
  std::vector<int> rows(rows_.size());
  std::iota(rows.begin(), rows.end(), 0);
  return rows;
}

}  // namespace dg
