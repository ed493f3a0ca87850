#pragma once

#include "forms/form.h"

namespace dg {

/// The window that stays up while all views load; every view writes its progress text to it.
class frmSplash final : public Form {
 public:
  frmSplash();
  /// Sets version, progress and notice.
  void Form_Load();
  /// A key or a click on the frame closes it; the load goes on.
  void dismiss();

  Label& lblProductName;
  Label& Label2;
  Label& lblVersion;
  Label& lblProgress;
  Label& Label3;
};

/// The splash of this run; made at the first use.
frmSplash& splash();
void releaseSplash();

/// Sets the splash's progress text and repaints it at once.
void showProgress(const std::string& text);

/// "2.5.3"
std::string versionText();
inline constexpr const char* kProgramName = "Dealer Gauge 2";

}  // namespace dg
