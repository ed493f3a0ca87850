#include "engine/catalog_configuration.h"

#include <cstddef>
#include <memory>
#include <string>

#include "engine/business_basic.h"
#include "engine/state.h"
#include "platform/environment.h"
#include "platform/file.h"
#include "platform/ini_file.h"
#include "platform/message_box.h"
#include "platform/values/convert.h"
#include "platform/values/run_time_error.h"

namespace dg {

namespace {

constexpr const char* kSection = "eZ-Lines";
/// Longer values are cut to what fits, less a closing NUL.
constexpr std::size_t kValueBuffer = 100;

}  // namespace

std::string catalogPath() {
  std::string path = environment().temp;
  if (path.empty() || (path.back() != '\\' && path.back() != '/')) path += '\\';
  return path + kCatalogFileName;
}

bool readCatalogFile() {
  EpcInfo = std::make_shared<cEpcInfo>();
  SystemInfo = std::make_shared<cSystem>();

  const std::string path = catalogPath();
  if (!fileSystem().fileExists(path)) {
    MsgBox("You are missing file: " + path + "    Are you running Velmora Workstation?",
           kSystemModal, "EpcError");
    return false;
  }
  const auto value = [&path](const char* key) {
    return GetPrivateProfileString(kSection, key, kValueBuffer, path);
  };
  EpcInfo->Server = value("Server");
  EpcInfo->DataShare = value("DataShare");
  EpcInfo->CatalogShare = "\\\\" + EpcInfo->Server + "\\" + value("CatalogShare") + "\\";
  EpcInfo->Directory = value("Directory");
  if (!environment().directory.empty()) EpcInfo->Directory = environment().directory;
  EpcInfo->TerminalID = value("TerminalID");
  const std::string customerNumber = value("CustomerNumber");
  if (!customerNumber.empty()) EpcInfo->CustomerNumber = CLng(customerNumber);

  SystemInfo->mUNCDrive = EpcInfo->Server;
  SystemInfo->mDirectory = EpcInfo->Directory;
  return true;
}

void ReadCatalogConfiguration() {
  // An engine of an earlier run would drop the new state at its end.
  SharedEngine.reset();
  if (!readCatalogFile()) return;
  try {
    SharedEngine = std::make_shared<cBusinessBasic>();
  } catch (const RunTimeError&) {
    // No engine: the user has seen the reason where there is one to tell.
    SharedEngine.reset();
  }
}

}  // namespace dg
