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

void writeRecap(int index, const std::string& caption) {
  Label& label = recapSheet().lblRecap(index);
  label.setForeColor(kBlack);
  label.setCaption(caption);
  label.Refresh();
}

void markRecapError(int index) {
  Label& label = recapSheet().lblRecap(index);
  label.setForeColor(kRed);
  label.setCaption(kDataError);
  label.Refresh();
}

}  // namespace dg
