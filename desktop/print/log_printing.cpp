#include "desktop/print/log_printing.h"

#include <QApplication>
#include <QFontDatabase>
#include <QPrinter>
#include <QTextDocument>

#include "desktop/print/printing.h"
#include "desktop/window/text.h"

namespace dg {

void printLog(const std::string& text) {
  QPrinter printer(QPrinter::HighResolution);
  printer.setDocName(QStringLiteral("dgoperation.log"));
  if (!askForPrinter(printer, QApplication::activeWindow())) return;
  QTextDocument document;
  QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  font.setPointSizeF(9);
  document.setDefaultFont(font);
  document.setPlainText(fromBytes(text));
  document.print(&printer);
}

}  // namespace dg
