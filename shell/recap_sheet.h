#pragma once

#include <functional>
#include <string>

#include "forms/label.h"
#include "shell/recap_figures.h"

namespace dg {

/// What a recap label shows when its view failed.
inline constexpr const char* kDataError = "Data Error !";

/// The recap's labels, for the views that write them. Implemented by frmRecap.
class RecapSheet {
 public:
  virtual ~RecapSheet() = default;
  /// Label 0 to kRecapLabels - 1.
  virtual Label& lblRecap(int index) = 0;

  /// Opens the log viewer; a click on a label in error asks for it. Set by the main window.
  std::function<void()> onViewLog;
};

/// The recap that is loaded; raises 91 when none is.
RecapSheet& recapSheet();
/// The label of a figure there.
Label& recapLabel(Figure figure);
void setRecapSheet(RecapSheet* sheet);

/// Writes a view's total and repaints it.
void writeRecap(Figure figure, const std::string& caption);
/// Marks a view's label: "Data Error !" in red.
void markRecapError(Figure figure);

}  // namespace dg
