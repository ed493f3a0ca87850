#pragma once

#include "forms/form.h"

namespace dg {

/// The window that stays up while all views load; every view writes its progress text to it.
class frmSplash final : public Form {
 public:
  frmSplash();
  /// Sets version, progress and notice.
  void Form_Load();
  /// A key or a click on the frame closes it; the load goes on, and the next progress text loads it
  /// again, out of sight.
  void dismiss();
  /// Whether its texts stand, on show or not.
  bool loaded() const { return loaded_; }

  Label& lblProductName;
  Label& Label2;
  Label& lblVersion;
  Label& lblProgress;
  Label& Label3;

 private:
  bool loaded_ = false;
  Connection unloadWatch_;
};

/// The splash of this run, made at the first use and loaded when it is not.
frmSplash& splash();
/// Unloads and drops it, at the very end.
void releaseSplash();

/// Sets the splash's progress text and repaints it at once.
void showProgress(const std::string& text);

/// Major, minor and revision number, as the build file has them: its only place.
std::string versionText();
inline constexpr const char* kProgramName = "Dealer Gauge 2";
/// The license in short, as splash and About show it; the file LICENSE has it whole.
inline constexpr const char* kLegalNotice =
    "Free software under the MIT license: you may use it, copy it and pass it on.\n"
    "It comes without any warranty.\n";

}  // namespace dg
