#include "tools/dgtool/form_bands.h"

#include <algorithm>
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

}  // namespace

std::vector<Band> bandsOf(const Form& form) {
  return BandBuilder(form).build();
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

}  // namespace dg
