#include "tests/support/view_run.h"

#include <gtest/gtest.h>

#include "shell/main.h"

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

Cells column(const Grid& grid, std::string_view name) {
  Cells cells;
  for (int row = 0; row < grid.Rows(); ++row)
    cells.push_back(grid.CellValue(name, row));
  return cells;
}

void ViewRun::open() {
  if (!opened_) open(builder.finish());
}

void ViewRun::open(std::vector<SampleFile> files) {
  connectFailureLog();
  openEngine(std::move(files));
  opened_ = true;
}

std::string ViewRun::recap(int index) {
  const Label& label = recapSheet.lblRecap(index);
  return (label.foreColor() == kRed ? "! " : "") + label.caption();
}

void ViewRun::expectFailure(int recapLabel, const std::string& line) {
  EXPECT_EQ(recap(recapLabel), "! Data Error !");
  EXPECT_THAT(logged, ElementsAre(line));
  EXPECT_THAT(messages, IsEmpty());
}

ShownWindow ViewRun::click(Grid& grid, int row) {
  windows.clear();
  grid.rowClick(row);
  EXPECT_FALSE(windows.empty());
  EXPECT_TRUE(onModal || windows.size() <= 1U);
  return windows.empty() ? ShownWindow() : windows.front();
}

void ViewRun::showModal(Form& form) {
  windows.push_back(pictureOf(form));
  ProgramRun::showModal(form);
}

}  // namespace dg::test
