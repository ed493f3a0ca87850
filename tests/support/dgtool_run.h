#pragma once

#include <initializer_list>
#include <memory>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

#include "shell/view.h"
#include "tests/support/program_run.h"
#include "tools/dgtool/command_line.h"

namespace dg {

/// A view made of whatever a test puts on it.
class TestView final : public View {
 public:
  using View::View;
  void Form_Load() override {
    if (onLoad) onLoad();
  }
  template <class T, class... Args>
  T& put(Args&&... args) {
    return add<T>(std::forward<Args>(args)...);
  }
  std::function<void()> onLoad;
};

/// Runs dgtool in this process over the store of a ProgramRun, which `store` fills before the first
/// call of run().
class DgtoolRun {
 public:
  DgtoolRun();

  ProgramRun store;
  /// The views that there are: the recap, and what a test adds.
  ViewCatalogue views;
  /// Takes the store that is in place already, instead of `store`'s builder.
  void useOpenStore() { opened_ = true; }
  /// Adds a view under one of the program's names that `fill` furnishes whenever it is made.
  void addView(const std::string& name, std::function<void(TestView&)> fill);

  /// Runs a command; returns its exit status and keeps what it wrote. The store of `store` is in
  /// place as --temp and --share-root would put it.
  int run(const std::vector<std::string>& arguments);
  std::string out;
  std::string err;
  bool errIsTerminal = false;
  /// `out` as JSON; fails the test when it is none.
  nlohmann::json json() const;

 private:
  bool opened_ = false;
};

}  // namespace dg
