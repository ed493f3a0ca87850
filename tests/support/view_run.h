#pragma once

#include <array>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "forms/form.h"
#include "shell/recap_sheet.h"
#include "shell/view.h"
#include "tests/support/program_run.h"

namespace dg::test {

using Rows = std::vector<Grid::Row>;

/// The cells of one column.
std::vector<std::string> column(const Grid& grid, std::string_view name);

/// What a window showed when it opened.
struct ShownWindow {
  std::string name;
  std::string caption;
  std::map<std::string, std::string> labels;
  std::map<std::string, bool> visible;  ///< of every control
  std::map<std::string, Rows> grids;
  std::map<std::string, std::vector<std::string>> combos;
};

/// A view over hand-made records: a test fills `builder`, loads views and looks at their controls.
/// The recap's labels stand by, windows that open are kept in `windows`.
class ViewRun : public ProgramRun, public RecapSheet {
 public:
  ViewRun();
  ~ViewRun() override;

  /// Loads a view; the first one opens the store as `builder` then has it.
  template <class ViewType>
  ViewType& load() {
    openOnce();
    auto view = std::make_unique<ViewType>();
    ViewType& loaded = *view;
    views_.push_back(std::move(view));
    loaded.Form_Load();
    return loaded;
  }
  /// Opens the store as `builder` then has it, for tests that need no view.
  void openOnce();
  /// Opens another store instead.
  void open(std::vector<SampleFile> files);

  Label& lblRecap(int index) override;
  /// What a recap label shows, behind "! " when it is marked as an error.
  std::string recap(int index);

  void showModal(Form& form) override;

  std::vector<ShownWindow> windows;

 private:
  std::vector<std::unique_ptr<Label>> labels_;
  std::vector<std::unique_ptr<View>> views_;
  bool opened_ = false;
};

}  // namespace dg::test
