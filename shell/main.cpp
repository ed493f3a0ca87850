#include "shell/main.h"

#include <utility>

#include "platform/environment.h"
#include "platform/message_box.h"
#include "records/failure_log.h"
#include "shell/splash.h"
#include "shell/write_log.h"

namespace dg {

namespace {

constexpr const char* kRefusal =
    " This application can only be started \n"
    "     from the Velmora main menu.    ";

}  // namespace

void setLogFile() {
  const Environment& place = environment();
  gsLogFile = place.logFolder.value_or(place.temp) + "\\dgoperation.log";
}

void connectFailureLog() {
  setFailureLog(
      {.failure = [](std::string_view phrase,
                     const RunTimeError& error) { logLine("*" + viewFailureText(phrase, error)); },
       .line = &logLine});
}

std::unique_ptr<frmTRVN> startProgram(const ViewCatalogue& catalogue,
                                      std::vector<std::string> only) {
  connectFailureLog();
  splash().Show();
  splash().Refresh();
  auto mainWindow = std::make_unique<frmTRVN>(catalogue, std::move(only));
  mainWindow->Form_Load();
  splash().Unload();
  mainWindow->Show();
  return mainWindow;
}

std::unique_ptr<frmTRVN> Main(const std::string& commandTail, const ViewCatalogue& catalogue) {
  setLogFile();
  if (commandTail != kLaunchToken) {
    MsgBox(kRefusal, kInformation);
    return nullptr;
  }
  return startProgram(catalogue);
}

}  // namespace dg
