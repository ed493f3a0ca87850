#include "shell/splash.h"

#include <memory>

namespace dg {

namespace {

constexpr int kMajor = 2;
constexpr int kMinor = 5;
constexpr int kRevision = 3;

constexpr const char* kConnecting = "Connecting to Server...";
constexpr Place kSheet[] = {
    {.control = "lblProductName", .row = 0, .frame = "Frame1"},
    {.control = "Label2", .row = 0, .column = 1, .frame = "Frame1"},
    {.control = "lblVersion", .row = 1, .columnSpan = 2, .frame = "Frame1"},
    {.control = "lblProgress", .row = 2, .columnSpan = 2, .frame = "Frame1"},
    {.control = "Label3", .row = 3, .columnSpan = 2, .frame = "Frame1"},
    {.control = "Frame1", .row = 0},
};

std::unique_ptr<frmSplash>& frmSplashRef() {
  static std::unique_ptr<frmSplash> window;
  return window;
}

}  // namespace

frmSplash::frmSplash()
    : Form("frmSplash", kProgramName),
      lblProductName(addFramed<Label>("Frame1", "", "lblProductName", "Dealer", LabelRole::kTitle)),
      Label2(add<Label>("Label2", "Gauge 2", LabelRole::kTitle)),
      lblVersion(add<Label>("lblVersion")),
      lblProgress(add<Label>("lblProgress")),
      Label3(add<Label>("Label3", "", LabelRole::kNote)),
      unloadWatch_(unloaded.connect([this] { loaded_ = false; })) {
  setSheet(kSheet);
}

void frmSplash::Form_Load() {
  loaded_ = true;
  lblVersion.setCaption("Version " + versionText());
  lblProgress.setCaption(kConnecting);
  Label3.setCaption(kLegalNotice);
}

void frmSplash::dismiss() {
  if (loaded_) Unload();
}

frmSplash& splash() {
  if (!frmSplashRef()) frmSplashRef() = std::make_unique<frmSplash>();
  if (!frmSplashRef()->loaded()) frmSplashRef()->Form_Load();
  return *frmSplashRef();
}

void releaseSplash() {
  if (!frmSplashRef()) return;
  frmSplashRef()->dismiss();
  frmSplashRef().reset();
}

void showProgress(const std::string& text) {
  Label& progress = splash().lblProgress;
  progress.setCaption(text);
  progress.Refresh();
}

std::string versionText() {
  return std::to_string(kMajor) + "." + std::to_string(kMinor) + "." + std::to_string(kRevision);
}

}  // namespace dg
