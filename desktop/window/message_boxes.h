#pragma once

#include <QString>

#include "platform/message_box.h"

class QWidget;

namespace dg {

/// Shows the program's message boxes (see MsgBox) as dialogs: the title or the program's name, the
/// icon of the style, the text as it stands, one OK button. Returns when it is closed.
void showMessageBox(const MessageBox& box);

/// A message of the desktop's own about something that could not be done.
void showWarning(QWidget* parent, const QString& title, const QString& text);

/// No box while `on`: the system ends the program, and nobody may be there to answer.
void silenceMessageBoxes(bool on);

}  // namespace dg
