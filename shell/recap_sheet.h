#pragma once

#include <functional>
#include <optional>
#include <string>

#include "forms/label.h"
#include "platform/values/date.h"
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

  /// When the load or refresh began that all figures are of; set by the recap's own load.
  std::optional<Date> compiled;
};

/// The recap that is loaded; raises 91 when none is.
RecapSheet& recapSheet();
/// The label of a figure there.
Label& recapLabel(Figure figure);
void setRecapSheet(RecapSheet* sheet);
/// When the load or refresh began that the figures are of; none before a load.
std::optional<Date> figuresMoment();
/// "Figures as of 11/24/26 10:30:00 AM", for whatever shows figures away from the recap; empty
/// before a load.
std::string figuresAsOf(std::optional<Date> moment = figuresMoment());

/// Writes a view's total and repaints it.
void writeRecap(Figure figure, const std::string& caption);
/// Marks a view's label: "Data Error !" in red.
void markRecapError(Figure figure);

}  // namespace dg
