#include "shell/recap_sheet.h"

#include "platform/values/run_time_error.h"

namespace dg {

namespace {

RecapSheet* loadedSheet = nullptr;

}  // namespace

RecapSheet& recapSheet() {
  if (loadedSheet == nullptr) throw RunTimeError(kObjectNotSet);
  return *loadedSheet;
}

void setRecapSheet(RecapSheet* sheet) {
  loadedSheet = sheet;
}

Label& recapLabel(Figure figure) {
  return recapSheet().lblRecap(static_cast<int>(figure));
}

std::optional<Date> figuresMoment() {
  return loadedSheet != nullptr ? loadedSheet->compiled : std::nullopt;
}

std::string figuresAsOf(std::optional<Date> moment) {
  if (!moment) return {};
  return "Figures as of " + moment->shortDateText() + " " + moment->longTimeText();
}

void writeRecap(Figure figure, const std::string& caption) {
  Label& label = recapLabel(figure);
  label.setForeColor(kBlack);
  label.setCaption(caption);
  label.Refresh();
}

void markRecapError(Figure figure) {
  Label& label = recapLabel(figure);
  label.setError(kDataError);
  label.Refresh();
}

}  // namespace dg
