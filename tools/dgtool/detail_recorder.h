#pragma once

#include <climits>
#include <string>

#include "forms/form.h"

namespace dg {

/// Told of each window that a click opens, while that window is open.
class DetailVisitor {
 public:
  virtual ~DetailVisitor() = default;
  DetailVisitor() = default;
  DetailVisitor(const DetailVisitor&) = delete;
  DetailVisitor& operator=(const DetailVisitor&) = delete;

  /// `window` was opened by a click on `row` of a grid, or on a button: row -1. What its own
  /// clicks open follows before leave().
  virtual void enter(const Form& window, const std::string& control, int row) = 0;
  virtual void leave() = 0;
};

/// Opens all that there is to open from a window: a click on every row of each grid that takes
/// clicks, and on the buttons that open a window. It stands in for the user and the screen: a
/// window that a click shows is passed to the visitor, then its own grids are clicked, and only
/// then does the call that showed it return.
class DetailRecorder final : private Presenter {
 public:
  /// `mostRows`: rows of each grid, from the first on, that are clicked.
  explicit DetailRecorder(DetailVisitor& visitor, int mostRows = INT_MAX)
      : visitor_(visitor), mostRows_(mostRows) {}

  /// Clicks through a window. Windows are not told apart: one that opens itself again is followed
  /// a few levels only.
  void clickThrough(Form& form);

 private:
  void show(Form& form) override;
  void showModal(Form& form) override;
  void clickRows(Form& form);
  void opened(Form& form);

  DetailVisitor& visitor_;
  int mostRows_;
  std::string control_;  // what the click at hand is on
  int row_ = 0;
  int depth_ = 0;
};

}  // namespace dg
