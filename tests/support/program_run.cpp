#include "tests/support/program_run.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "engine/catalog_configuration.h"
#include "tests/support/memory_file_system.h"

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

ProgramRun::ProgramRun() {
  environment().computerName = "PC7";
  environment().settingsFile = folder.file("DealerGauge.ini");
  environment().desktopFile = folder.file("desktop.ini");
  environment().dataFolder = folder.file("data");
  surroundings_.useTemp(folder.path().string());
  surroundings_.useClock(Date::fromText("11/24/26 10:30:00"));
  surroundings_.useFileSystem(std::make_unique<MemoryFileSystem>());
  surroundings_.watchLog([this](const std::string& line) { logged.push_back(line); });
  surroundings_.usePresenter(this);
  surroundings_.useMessageBoxes([this](const MessageBox& box) { messages.push_back(box); });
}

void ProgramRun::openOnDisk(const std::string& store) {
  surroundings_.useStore(store);
  surroundings_.useFileSystem(nullptr);
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
  surroundings_.useFileSystem(std::move(fileSystem));
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
