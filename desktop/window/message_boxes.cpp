#include "desktop/window/message_boxes.h"

#include <QApplication>
#include <QMessageBox>

#include "desktop/window/text.h"
#include "shell/splash.h"

namespace dg {

namespace {

QMessageBox::Icon iconOf(int style) {
  constexpr int kIconBits = 0x70;
  switch (style & kIconBits) {
    case kCritical:
      return QMessageBox::Critical;
    case kInformation:
      return QMessageBox::Information;
    default:
      return QMessageBox::NoIcon;
  }
}

bool silent = false;

}  // namespace

void silenceMessageBoxes(bool on) {
  silent = on;
}

void showMessageBox(const MessageBox& box) {
  if (silent) return;
  QMessageBox dialog(QApplication::activeWindow());
  dialog.setWindowTitle(box.title.empty() ? QString::fromLatin1(kProgramName)
                                          : fromBytes(box.title));
  dialog.setTextFormat(Qt::PlainText);
  dialog.setText(fromBytes(box.text));
  dialog.setIcon(iconOf(box.style));
  dialog.setStandardButtons(QMessageBox::Ok);
  dialog.setWindowModality(Qt::ApplicationModal);
  if ((box.style & kSystemModal) != 0) dialog.setWindowFlag(Qt::WindowStaysOnTopHint);
  // The hourglass of a load that is under way is no pointer for answering a question.
  QApplication::setOverrideCursor(Qt::ArrowCursor);
  dialog.exec();
  QApplication::restoreOverrideCursor();
}

void showWarning(QWidget* parent, const QString& title, const QString& text) {
  if (silent) return;
  QMessageBox dialog(parent);
  dialog.setWindowTitle(title);
  dialog.setTextFormat(Qt::PlainText);
  dialog.setText(text);
  dialog.setIcon(QMessageBox::Warning);
  dialog.exec();
}

}  // namespace dg
