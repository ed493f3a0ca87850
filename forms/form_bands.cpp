#include "forms/form_bands.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

#include "platform/text.h"

namespace dg {

namespace {

/// Gathers the bands of a form in reading order.
class BandBuilder {
 public:
  explicit BandBuilder(const Form& form) : form_(form) {}

  std::vector<Band> build() {
    addFrame({});
    addUnplaced();
    return std::move(bands_);
  }

 private:
  void addFrame(std::string_view frame) {
    std::vector<Place> places;
    for (const Place& place : form_.sheet()) {
      if (place.frame == frame) places.push_back(place);
    }
    std::ranges::stable_sort(places, [](const Place& a, const Place& b) {
      return a.row != b.row ? a.row < b.row : a.column < b.column;
    });
    for (const Place& place : places)
      addControl(place);
    open_ = false;
  }

  void addControl(const Place& place) {
    const Control* control = form_.find(place.control);
    if (control == nullptr) return;
    placed_.insert(control);
    if (!control->visible()) {
      if (dynamic_cast<const Frame*>(control) != nullptr) hideFrame(control->name());
      return;
    }
    if (const auto* label = dynamic_cast<const Label*>(control)) {
      addLabel({label, place.row, place.column, place.columnSpan});
    } else if (const auto* grid = dynamic_cast<const Grid*>(control)) {
      addGrid(*grid);
    } else if (const auto* frame = dynamic_cast<const Frame*>(control)) {
      open_ = false;
      heading_ = frame->caption();
      addFrame(frame->name());
      heading_.clear();
    }
  }

  /// What a hidden frame holds is not seen either.
  void hideFrame(std::string_view frame) {
    for (const Place& place : form_.sheet()) {
      if (place.frame == frame) placed_.insert(form_.find(place.control));
    }
  }

  void addUnplaced() {
    int row = 0;
    for (const auto& control : form_.controls()) {
      if (!control->visible() || placed_.contains(control.get())) continue;
      if (const auto* label = dynamic_cast<const Label*>(control.get())) {
        addLabel({label, row++, 0, 1});
      } else if (const auto* grid = dynamic_cast<const Grid*>(control.get())) {
        addGrid(*grid);
      }
    }
  }

  /// A hint tells how to use the window; a report is none.
  void addLabel(const SheetLabel& place) {
    if (place.label->role() != LabelRole::kHint) labelBand().labels.push_back(place);
  }

  Band& newBand() {
    bands_.push_back({});
    bands_.back().heading = std::exchange(heading_, {});
    return bands_.back();
  }

  Band& labelBand() {
    if (!open_) newBand();
    open_ = true;
    return bands_.back();
  }

  void addGrid(const Grid& grid) {
    newBand().grid = &grid;
    open_ = false;
  }

  const Form& form_;
  std::vector<Band> bands_;
  std::set<const Control*> placed_;
  std::string heading_;  // of a frame whose first band is still to come
  bool open_ = false;    // whether the last band takes more labels
};

/// A label of several lines on one.
std::string onOneLine(const Label& label) {
  std::string line;
  const std::string text = labelText(label);
  for (std::size_t start = 0; start <= text.size();) {
    const std::size_t end = std::min(text.find_first_of("\r\n", start), text.size());
    const std::string_view part = trim(std::string_view(text).substr(start, end - start));
    if (!part.empty() && !line.empty()) line += ", ";
    line += part;
    start = end + 1;
  }
  return line;
}

void appendLines(const Band& band, std::vector<std::string>& lines) {
  std::map<int, std::string> rows;
  for (const SheetLabel& place : band.labels) {
    if (place.label->role() == LabelRole::kTitle) continue;
    const std::string text = onOneLine(*place.label);
    std::string& row = rows[place.row];
    if (!text.empty() && !row.empty()) row += "   ";
    row += text;
  }
  std::string heading = band.heading.empty() ? std::string() : band.heading + ": ";
  for (const auto& [number, row] : rows) {
    if (!row.empty()) lines.push_back(std::exchange(heading, {}) + row);
  }
}

}  // namespace

std::vector<Band> bandsOf(const Form& form) {
  return BandBuilder(form).build();
}

std::vector<std::string> linesAboveGrids(const Form& form) {
  std::vector<std::string> lines;
  for (const Band& band : bandsOf(form)) {
    if (band.grid != nullptr) break;
    appendLines(band, lines);
  }
  return lines;
}

std::vector<std::string> linesBelowGrid(const Form& form, const Grid& grid) {
  std::vector<std::string> lines;
  bool below = false;
  for (const Band& band : bandsOf(form)) {
    if (band.grid != nullptr) {
      below = band.grid == &grid;
    } else if (below) {
      appendLines(band, lines);
    }
  }
  return lines;
}

std::string labelText(const Label& label) {
  std::string text;
  const std::string& caption = label.caption();
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == '&' && i + 1 < caption.size() && caption[i + 1] == '&') ++i;
    text += caption[i];
  }
  return text;
}

std::string titleOf(const Form& form) {
  for (const auto& control : form.controls()) {
    const auto* label = dynamic_cast<const Label*>(control.get());
    if (label != nullptr && label->role() == LabelRole::kTitle && !trim(label->caption()).empty()) {
      return std::string(trim(labelText(*label)));
    }
  }
  const auto caption = trim(form.caption());
  return std::string(caption.empty() ? form.name() : caption);
}

std::string gridTitle(const Form& form, const Grid& grid) {
  if (!trim(grid.heading()).empty()) return std::string(trim(grid.heading()));
  std::string title = titleOf(form);
  for (const Band& band : bandsOf(form)) {
    if (band.grid == &grid) break;
    for (const SheetLabel& place : band.labels) {
      const std::string text = onOneLine(*place.label);
      if (place.label->role() == LabelRole::kTitle && !text.empty()) title = text;
    }
  }
  return title;
}

}  // namespace dg
