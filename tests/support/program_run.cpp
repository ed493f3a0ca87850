#include "tests/support/program_run.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "engine/catalog_configuration.h"
#include "engine/state.h"
#include "platform/clock.h"
#include "platform/file.h"
#include "records/failure_log.h"
#include "shell/main.h"
#include "shell/recap_sheet.h"
#include "shell/sort_grid.h"
#include "shell/splash.h"
#include "shell/write_log.h"

namespace dg {

namespace {

constexpr std::string_view kSettings = "config/DealerGauge.ini";

/// Where the program looks for a file of an example store; empty for those that it does not read
/// through its file system.
std::string programPath(const std::string& path, const std::string& temp) {
  const auto below = [&path](std::string_view folder, std::string place) {
    place += path.substr(folder.size());
    std::replace(place.begin(), place.end(), '/', '\\');
    return place;
  };
  if (path.starts_with("share/")) return below("share/", "\\\\");
  if (path.starts_with("temp/")) return temp + "\\" + below("temp/", "");
  return {};
}

}  // namespace

ProgramRun::ProgramRun() : formerEnvironment_(environment()) {
  Environment& place = environment();
  place.temp = folder.path().string();
  place.logFolder.reset();
  place.computerName = "PC7";
  place.settingsFile = folder.file("DealerGauge.ini");
  setClock(Date::fromText("11/24/26 10:30:00"));
  resetEngineState();
  setFileSystem(std::make_unique<MemoryFileSystem>());
  setLogFile();
  setLogObserver([this](const std::string& line) { logged.push_back(line); });
  setPresenter(this);
  formerHandler_ = setMessageBoxHandler([this](const MessageBox& box) { messages.push_back(box); });
  gSortDirection = 0;
}

ProgramRun::~ProgramRun() {
  releaseSplash();
  setMessageBoxHandler(std::move(formerHandler_));
  setPresenter(nullptr);
  setLogObserver({});
  setLogEnabled(true);
  setFailureLog({});
  resetEngineState();
  setFileSystem(nullptr);
  setClock(std::nullopt);
  environment() = formerEnvironment_;
}

void ProgramRun::openStore(std::vector<SampleFile> files) {
  auto fileSystem = std::make_unique<MemoryFileSystem>();
  for (SampleFile& file : files) {
    const bool isMissing = std::any_of(missing.begin(), missing.end(), [&](const std::string& end) {
      return file.path.ends_with("/" + end);
    });
    if (file.path == kSettings && !file.content.empty())
      folder.write("DealerGauge.ini", file.content);
    const std::string place = programPath(file.path, environment().temp);
    if (!isMissing && !place.empty()) fileSystem->add(place, std::move(file.content));
  }
  setFileSystem(std::move(fileSystem));
}

void ProgramRun::openEngine(std::vector<SampleFile> files) {
  openStore(std::move(files));
  ReadCatalogConfiguration();
}

void ProgramRun::showModal(Form& form) {
  shown.push_back("modal " + form.name());
  if (onModal) onModal(form);
}

}  // namespace dg
