#include "shell/surroundings.h"

#include <utility>

#include "engine/state.h"
#include "platform/clock.h"
#include "shell/main.h"
#include "shell/sort_grid.h"
#include "shell/splash.h"

namespace dg {

Surroundings::Surroundings()
    : environment_(environment()),
      clock_(setClock(std::nullopt)),
      presenter_(presenter()),
      logObserver_(setLogObserver({})),
      logEnabled_(setLogEnabled(true)),
      logFile_(gsLogFile),
      failureLog_(setFailureLog({})),
      sortDirection_(std::exchange(gSortDirection, std::int16_t{0})),
      warrantySegments_(std::exchange(WarrantySegments, false)) {
  setClock(clock_);
  releaseSplash();
  resetEngineState();
  setLogFile();
}

Surroundings::~Surroundings() {
  releaseSplash();
  resetEngineState();
  WarrantySegments = warrantySegments_;
  gSortDirection = sortDirection_;
  setFailureLog(std::move(failureLog_));
  gsLogFile = logFile_;
  setLogEnabled(logEnabled_);
  setLogObserver(std::move(logObserver_));
  if (messageBoxes_) setMessageBoxHandler(std::move(*messageBoxes_));
  setPresenter(&presenter_);
  if (files_) setFileSystem(std::move(*files_));
  setClock(clock_);
  environment() = std::move(environment_);
}

void Surroundings::useStore(const std::string& folder) {
  environment().shareRoot = folder + "/share";
  environment().settingsFile = folder + "/config/DealerGauge.ini";
  useTemp(folder + "/temp");
}

void Surroundings::useTemp(const std::string& folder) {
  environment().temp = folder;
  environment().logFolder.reset();
  setLogFile();
}

void Surroundings::useFileSystem(std::unique_ptr<FileSystem> files) {
  std::unique_ptr<FileSystem> former = setFileSystem(std::move(files));
  if (!files_) files_ = std::move(former);
}

void Surroundings::useClock(std::optional<Date> moment) {
  setClock(moment);
}

void Surroundings::usePresenter(Presenter* presenter) {
  setPresenter(presenter);
}

void Surroundings::useMessageBoxes(MessageBoxHandler handler) {
  MessageBoxHandler former = setMessageBoxHandler(std::move(handler));
  if (!messageBoxes_) messageBoxes_ = std::move(former);
}

void Surroundings::watchLog(LogObserver observer) {
  setLogObserver(std::move(observer));
}

void Surroundings::enableLog(bool enabled) {
  setLogEnabled(enabled);
}

}  // namespace dg
