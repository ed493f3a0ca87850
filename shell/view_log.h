#pragma once

#include <functional>
#include <string>

#include "forms/form.h"

namespace dg {

/// Shows the operation log: the way to the texts behind a "Data Error !".
class frmViewLog final : public Form {
 public:
  frmViewLog();

  /// Reads the log. A missing log leaves the dialog empty, its path on top and the reason below.
  void Form_Load();

  Label& Label1;    ///< path of the log
  Label& lblEmpty;  ///< why it is empty or lacks its last lines; else empty itself
  TextArea& rtb1;   ///< its text, Windows-1252 bytes
  Button& cmdPrint;
  Button& cmdExit;

  /// Asks for the printer and prints the text; set by who shows the dialog. A cancelled print is
  /// its matter and no error.
  std::function<void(const std::string& text)> onPrint;
};

/// Loads the log viewer and shows it until the user has closed it.
void showLogViewer();

}  // namespace dg
