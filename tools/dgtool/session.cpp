#include "tools/dgtool/session.h"

#include <algorithm>
#include <filesystem>

#include "engine/catalog_configuration.h"
#include "engine/state.h"
#include "platform/environment.h"
#include "platform/file.h"
#include "shell/main.h"
#include "shell/recap_figures.h"
#include "shell/splash.h"

namespace dg {

namespace {

namespace fs = std::filesystem;

void applyOptions(const StoreOptions& options, Surroundings& surroundings) {
  Environment& place = environment();
  if (!options.store.empty()) {
    if (!fs::is_directory(options.store)) {
      throw UsageError("no such store: " + options.store + " is not a folder");
    }
    surroundings.useStore(options.store);
  }
  if (!options.temp.empty()) surroundings.useTemp(options.temp);
  if (!options.shareRoot.empty()) place.shareRoot = options.shareRoot;
  if (!options.computer.empty()) place.computerName = options.computer;
  if (!options.directory.empty()) place.directory = options.directory;
  if (!options.settings.empty()) place.settingsFile = options.settings;
  if (options.asOf) surroundings.useClock(options.asOf);
}

}  // namespace

Session::Session(const StoreOptions& options, const Console& console) : console_(console) {
  applyOptions(options, surroundings_);
  surroundings_.enableLog(!options.noLog);
  surroundings_.watchLog([this](const std::string& line) {
    if (line.starts_with('*')) failures_.push_back(line);
  });
  surroundings_.useMessageBoxes([this](const MessageBox& box) { messages_.push_back(box); });
}

Session::~Session() {
  if (main_) {
    main_->Form_Unload();
    main_.reset();
  }
}

void Session::openEngine() {
  connectFailureLog();
  ReadCatalogConfiguration();
  if (storeReachable()) return;
  complain();
  throw UsageError("the store cannot be reached");
}

void Session::locateServer() {
  if (readCatalogFile() && shareIsReachable(SystemInfo->linkShare())) return;
  complain();
  throw UsageError("the store cannot be reached");
}

void Session::locateStore() {
  const bool found = readCatalogFile() && !SystemInfo->mDirectory.empty() &&
                     shareIsReachable(SystemInfo->linkShare()) &&
                     fileSystem().directoryExists(SystemInfo->VLMRLNK());
  if (found) return;
  complain();
  throw UsageError("the store cannot be reached");
}

frmTRVN& Session::load(const ViewCatalogue& catalogue, const std::vector<std::string>& views) {
  if (console_.errIsTerminal) {
    progress_ = splash().lblProgress.refreshed.connect(
        [this] { showProgress(splash().lblProgress.caption()); });
  }
  main_ = startProgram(catalogue, views);
  clearProgress();
  return *main_;
}

void Session::refresh() {
  main_->ReLoadBm();
  clearProgress();
}

bool Session::storeReachable() const {
  return SharedEngine != nullptr;
}

bool Session::isWhole() const {
  if (!main_) return false;
  const View* recap = main_->view("frmRecap");
  const bool failed = std::ranges::any_of(recapFigures(), [recap](const RecapFigure& figure) {
    return isFigureInError(recap, figure.figure);
  });
  // Showing a view is the last step of a load.
  const View* shown = main_->CurrentView();
  return !failed && shown != nullptr && shown->visible();
}

void Session::complain() const {
  for (const MessageBox& box : messages_) {
    console_.complain(box.title.empty() ? box.text : box.title + ": " + box.text);
  }
  for (const std::string& line : failures_)
    console_.complain(std::string_view(line).substr(1));
}

void Session::showProgress(std::string_view text) const {
  if (!console_.errIsTerminal) return;
  clearProgress();
  console_.err << terminalText(text) << std::flush;
}

void Session::clearProgress() const {
  if (console_.errIsTerminal) console_.err << "\r\x1B[K" << std::flush;
}

}  // namespace dg
