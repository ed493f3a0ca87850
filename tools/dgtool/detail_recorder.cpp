#include "tools/dgtool/detail_recorder.h"

#include <algorithm>
#include <string_view>

namespace dg {

namespace {

/// Buttons that open a window of figures, each after the rows of a grid of its form. Other buttons
/// print, close or change settings.
struct DetailButton {
  std::string_view form, grid, button;
};
constexpr DetailButton kDetailButtons[] = {{"frmPo", "grdPO", "cmdVtot"}};

constexpr int kButtonRow = -1;

/// The deepest chain of windows in the program is two below a view.
constexpr int kMaxDepth = 4;

/// Puts a presenter in place of the one in use while it lives.
class PresenterScope {
 public:
  explicit PresenterScope(Presenter& standIn) : former_(presenter()) { setPresenter(&standIn); }
  ~PresenterScope() { setPresenter(&former_); }
  PresenterScope(const PresenterScope&) = delete;
  PresenterScope& operator=(const PresenterScope&) = delete;

 private:
  Presenter& former_;
};

}  // namespace

void DetailRecorder::clickThrough(Form& form) {
  const PresenterScope standIn(*this);
  clickRows(form);
}

void DetailRecorder::show(Form& form) {
  opened(form);
}

void DetailRecorder::showModal(Form& form) {
  opened(form);
}

void DetailRecorder::opened(Form& form) {
  const std::string control = control_;
  const int row = row_;
  visitor_.enter(form, control, row);
  ++depth_;
  if (depth_ < kMaxDepth) clickRows(form);
  --depth_;
  visitor_.leave();
  control_ = control;
  row_ = row;
}

void DetailRecorder::clickRows(Form& form) {
  for (std::size_t i = 0; i < form.controls().size(); ++i) {
    auto* grid = dynamic_cast<Grid*>(form.controls()[i].get());
    if (grid == nullptr) continue;
    if (grid->hasClickAction()) {
      for (int row = 0; row < std::min(grid->Rows(), mostRows_); ++row) {
        control_ = grid->name();
        row_ = row;
        grid->rowClick(row);
      }
    }
    for (const DetailButton& entry : kDetailButtons) {
      if (entry.form != form.name() || entry.grid != grid->name()) continue;
      auto* button = dynamic_cast<Button*>(form.find(entry.button));
      if (button == nullptr) continue;
      control_ = button->name();
      row_ = kButtonRow;
      button->click();
    }
  }
}

}  // namespace dg
