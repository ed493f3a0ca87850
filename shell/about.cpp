#include "shell/about.h"

#include <algorithm>
#include <utility>

#include "platform/file.h"
#include "platform/message_box.h"
#include "platform/registry.h"
#include "shell/splash.h"

namespace dg {

namespace {

constexpr const char* kMaker = "Velmora Software, Inc\n";

constexpr const char* kInfoKey = R"(SOFTWARE\Microsoft\Shared Tools\MSINFO)";
constexpr const char* kInfoValue = "PATH";
constexpr const char* kLocationKey = R"(SOFTWARE\Microsoft\Shared Tools Location)";
constexpr const char* kLocationValue = "MSINFO";
constexpr const char* kInfoProgram = R"(\MSINFO32.EXE)";

constexpr std::uint32_t kRegistryNumber = 4;

constexpr Place kSheet[] = {
    {.control = "lblTitle", .row = 0, .columnSpan = 2},
    {.control = "lblVersion", .row = 1, .columnSpan = 2},
    {.control = "lblDisclaimer", .row = 2, .columnSpan = 2},
    {.control = "cmdOk", .row = 3, .column = 0},
    {.control = "cmdSysInfo", .row = 3, .column = 1},
};

}  // namespace

SystemInformation platformSystemInformation() {
  return {.readRegistry = &readMachineRegistry,
          .fileExists = [](const std::string& path) { return fileSystem().fileExists(path); },
          .start = &startProgram};
}

std::string registryText(std::uint32_t type, std::string bytes) {
  bytes.resize(std::min(bytes.find('\0'), bytes.size()));
  if (type != kRegistryNumber) return bytes;
  std::uint32_t number = 0;
  for (auto byte = bytes.rbegin(); byte != bytes.rend(); ++byte) {
    number = number << 8U | static_cast<unsigned char>(*byte);
  }
  return std::to_string(static_cast<std::int32_t>(number));
}

frmAbout::frmAbout()
    : Form("frmAbout", ""),
      lblTitle(add<Label>("lblTitle", "", LabelRole::kTitle)),
      lblVersion(add<Label>("lblVersion")),
      lblDisclaimer(add<Label>("lblDisclaimer", "", LabelRole::kNote)),
      cmdOk(add<Button>("cmdOk", "OK")),
      cmdSysInfo(add<Button>("cmdSysInfo", "&Sys Info")) {
  cmdOk.onClick = [this] { Unload(); };
  cmdSysInfo.onClick = [this] { StartSysInfo(); };
  setSheet(kSheet);
}

void frmAbout::Form_Load() {
  setCaption("About Dealer Gauge 2");
  lblVersion.setCaption("Version " + versionText());
  lblTitle.setCaption(kProgramName);
  lblDisclaimer.setCaption(std::string(kMaker) + kLegalNotice);
}

bool frmAbout::GetKeyValue(const std::string& key, const std::string& name,
                           std::string& value) const {
  std::uint32_t type = 0;
  std::string bytes;
  if (!systemInformation.readRegistry(key, name, type, bytes)) return false;
  value = registryText(type, std::move(bytes));
  return true;
}

void frmAbout::StartSysInfo() {
  std::string path;
  bool found = GetKeyValue(kInfoKey, kInfoValue, path);
  if (!found && GetKeyValue(kLocationKey, kLocationValue, path)) {
    path += kInfoProgram;
    found = systemInformation.fileExists(path);
  }
  if (found && systemInformation.start(path)) return;
  MsgBox("System Information Is Unavailable At This Time");
}

void showAbout() {
  frmAbout dialog;
  dialog.Form_Load();
  dialog.ShowModal();
}

}  // namespace dg
