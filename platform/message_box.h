#pragma once

#include <functional>
#include <string>

namespace dg {

/// Styles of the message boxes that the program shows.
enum MessageBoxStyle : int {
  kOkOnly = 0,
  kCritical = 16,
  kInformation = 64,
  kSystemModal = 4096,
};

struct MessageBox {
  std::string title;  ///< empty: the program's display name stands there
  std::string text;   ///< Windows-1252 bytes, lines parted by LF or CR LF
  int style = kOkOnly;
};

using MessageBoxHandler = std::function<void(const MessageBox&)>;

/// Shows a message box and returns when the user has closed it. What stands behind it is the
/// handler of the program at hand: a dialog on the desktop, a record in the command-line tool.
void MsgBox(const std::string& text, int style = kOkOnly, const std::string& title = {});

/// Sets what MsgBox does; without a handler the text goes to standard error. Returns the former.
MessageBoxHandler setMessageBoxHandler(MessageBoxHandler handler);

}  // namespace dg
