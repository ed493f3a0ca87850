#include "desktop/print/log_printing.h"

#include <QApplication>
#include <QFontDatabase>
#include <QPrintDialog>
#include <QPrinter>
#include <QTextDocument>

#include "desktop/window/text.h"

namespace dg {

void printLog(const std::string& text) {
  QPrinter printer(QPrinter::HighResolution);
  printer.setDocName(QStringLiteral("dgoperation.log"));
  QPrintDialog dialog(&printer, QApplication::activeWindow());
  dialog.setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintPageRange |
                    QAbstractPrintDialog::PrintCollateCopies);
  if (dialog.exec() != QDialog::Accepted) return;
  QTextDocument document;
  QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  font.setPointSizeF(9);
  document.setDefaultFont(font);
  document.setPlainText(fromBytes(text));
  document.print(&printer);
}

}  // namespace dg
