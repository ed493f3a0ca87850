#include "tests/support/view_run.h"

namespace dg::test {

namespace {

ShownWindow pictureOf(const Form& form) {
  ShownWindow window;
  window.name = form.name();
  window.caption = form.caption();
  for (const auto& control : form.controls()) {
    window.visible[control->name()] = control->visible();
    if (const auto* label = dynamic_cast<const Label*>(control.get())) {
      window.labels[label->name()] = label->caption();
    } else if (const auto* grid = dynamic_cast<const Grid*>(control.get())) {
      window.grids[grid->name()] = grid->rows();
    } else if (const auto* combo = dynamic_cast<const ComboBox*>(control.get())) {
      window.combos[combo->name()] = combo->items();
    }
  }
  return window;
}

}  // namespace

std::vector<std::string> column(const Grid& grid, std::string_view name) {
  std::vector<std::string> cells;
  for (int row = 0; row < grid.Rows(); ++row)
    cells.push_back(grid.CellValue(name, row));
  return cells;
}

ViewRun::ViewRun() {
  for (int i = 0; i < kRecapLabels; ++i)
    labels_.push_back(std::make_unique<Label>(elementName("lblRecap", i)));
  setRecapSheet(this);
}

ViewRun::~ViewRun() {
  views_.clear();
  setRecapSheet(nullptr);
}

void ViewRun::openOnce() {
  if (!std::exchange(opened_, true)) openEngine();
}

void ViewRun::open(std::vector<SampleFile> files) {
  opened_ = true;
  openEngine(std::move(files));
}

Label& ViewRun::lblRecap(int index) {
  return *labels_.at(static_cast<std::size_t>(index));
}

std::string ViewRun::recap(int index) {
  const Label& label = lblRecap(index);
  return (label.foreColor() == kRed ? "! " : "") + label.caption();
}

void ViewRun::showModal(Form& form) {
  windows.push_back(pictureOf(form));
  ProgramRun::showModal(form);
}

}  // namespace dg::test
