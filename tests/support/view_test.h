#pragma once

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/view_run.h"

namespace dg::test {

/// A test of views from files to cells: the run of a program whose recap is loaded. A test fills
/// `run_.builder`, and the first load() puts the store in place.
class ViewTest : public testing::Test {
 protected:
  /// A view over the store, loaded.
  template <class V>
  std::unique_ptr<V> load() {
    run_.open();
    auto view = std::make_unique<V>();
    view->Form_Load();
    return view;
  }
  /// Puts the store in place, for tests that change something behind that.
  void open() { run_.open(); }

  /// The caption of a recap label, and whether it stands there in red.
  const std::string& recap(int index);
  bool recapIsRed(int index);
  /// Expects "Data Error !" in red on a recap label and `line` as all that was logged.
  void expectFailure(int recapLabel, const std::string& line);

  ViewRun run_;
};

/// Clicks a head twice and expects the rows by `sortColumn`, descending and then ascending. Numbers
/// count as whole numbers, as they do in the program. A column whose cells are all equal is no
/// test and fails.
void expectHeadSorts(Grid& grid, int head, std::string_view sortColumn, bool text = false);
/// Clicks a head and expects that nothing moves.
void expectHeadDoesNothing(Grid& grid, int head);

}  // namespace dg::test
