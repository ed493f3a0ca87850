#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "forms/form.h"
#include "shell/view.h"
#include "tests/support/program_run.h"
#include "tools/sample/record_writer.h"
#include "views/financial/recap.h"

namespace dg::test {

using sample::RecordWriter;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

using Cells = std::vector<std::string>;
using Rows = std::vector<Grid::Row>;

/// The cells of a column, by name or caption, from the first row to the last.
Cells column(const Grid& grid, std::string_view name);

/// What a window showed when it opened.
struct ShownWindow {
  std::string name;
  std::string caption;
  std::map<std::string, std::string> labels;
  std::map<std::string, bool> visible;  ///< of every control
  std::map<std::string, Rows> grids;
  std::map<std::string, std::vector<std::string>> combos;
};

/// The run of a program whose recap is loaded, over hand-made records: a test fills `builder`,
/// loads views and looks at their controls. Windows that open are kept in `windows`.
class ViewRun : public ProgramRun {
 public:
  /// Loads a view, which lives as long as the run; the first one puts the store in place.
  template <class ViewType>
  ViewType& load() {
    open();
    auto view = std::make_unique<ViewType>();
    ViewType& loaded = *view;
    views_.push_back(std::move(view));
    loaded.Form_Load();
    return loaded;
  }
  /// Puts the store in place as `builder` now has it, unless one is there.
  void open();
  /// Puts another store in place.
  void open(std::vector<SampleFile> files);

  /// What a recap label shows, behind "! " when it stands there in red.
  std::string recap(int index);
  /// Expects "Data Error !" in red on a recap label and `line` as all that was logged.
  void expectFailure(int recapLabel, const std::string& line);

  /// The window that a click on a row opens, and only it unless `onModal` opens more from there.
  ShownWindow click(Grid& grid, int row = 0);

  void showModal(Form& form) override;

  std::vector<ShownWindow> windows;
  frmRecap recapSheet;

 private:
  std::vector<std::unique_ptr<View>> views_;
  bool opened_ = false;
};

class ViewTest : public testing::Test {
 protected:
  ViewRun run;
};

}  // namespace dg::test
