#include "desktop/print/printing.h"

#include <QBuffer>
#include <QLocale>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QPrinterInfo>

#include "desktop/grid/export_files.h"
#include "desktop/print/print_layout.h"
#include "desktop/window/message_boxes.h"
#include "desktop/window/user_settings.h"

namespace dg {

namespace {

constexpr QMarginsF kMargins{12, 12, 12, 12};  // millimetres
constexpr QSize kPreviewSize{900, 760};
constexpr int kPdfResolution = 1200;

QSizeF printableSize(const QPagedPaintDevice& device) {
  return device.pageLayout().paintRectPixels(device.logicalDpiX()).size();
}

/// The default printer's paper; without one what the user's country writes on.
QPageSize paper() {
  const QPrinterInfo printer = QPrinterInfo::defaultPrinter();
  if (!printer.isNull() && printer.defaultPageSize().isValid()) return printer.defaultPageSize();
  const bool metric = QLocale::system().measurementSystem() == QLocale::MetricSystem;
  return QPageSize(metric ? QPageSize::A4 : QPageSize::Letter);
}

void prepare(const PrintDocument& document, QPrinter& printer) {
  if (QPrinterInfo::defaultPrinter().isNull()) printer.setPageSize(paper());
  printer.setDocName(document.title);
  printer.setCreator(QStringLiteral("Dealer Gauge 2"));
  setUpPages(document, printer);
}

}  // namespace

void setUpPages(const PrintDocument& document, QPagedPaintDevice& device) {
  device.setPageMargins(kMargins, QPageLayout::Millimeter);
  device.setPageOrientation(QPageLayout::Portrait);
  if (PrintLayout::isWiderThan(document, device, printableSize(device).width())) {
    device.setPageOrientation(QPageLayout::Landscape);
  }
}

void drawDocument(const PrintDocument& document, QPagedPaintDevice& device, int first, int last) {
  QPainter painter;
  if (!painter.begin(&device)) return;
  const PrintLayout layout(document, device, printableSize(device));
  const int end = last > 0 ? qMin(last, layout.pageCount()) : layout.pageCount();
  for (int page = qMax(first, 1); page <= end; ++page) {
    if (page > first) device.newPage();
    layout.paint(painter, page - 1);
  }
}

bool askForPrinter(QPrinter& printer, QWidget* parent) {
#ifdef Q_OS_WIN
  // The system's own dialog then does not open and says nothing; other systems' print to a file.
  if (QPrinterInfo::availablePrinterNames().isEmpty()) {
    showWarning(parent, QObject::tr("Print"),
                QObject::tr("No printer is installed. Tables can be exported as PDF files."));
    return false;
  }
#endif
  QPrintDialog dialog(&printer, parent);
  dialog.setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintPageRange |
                    QAbstractPrintDialog::PrintCollateCopies);
  return dialog.exec() == QDialog::Accepted;
}

void printDocument(const PrintDocument& document, QWidget* parent) {
  QPrinter printer(QPrinter::HighResolution);
  prepare(document, printer);
  if (!askForPrinter(printer, parent)) return;
  drawDocument(document, printer, qMax(printer.fromPage(), 1), printer.toPage());
}

void previewDocument(const PrintDocument& document, QWidget* parent) {
  QPrinter printer(QPrinter::HighResolution);
  prepare(document, printer);
  QPrintPreviewDialog dialog(&printer, parent);
  UserSettings::restoreWindow(dialog, QStringLiteral("preview"), kPreviewSize);
  QObject::connect(
      &dialog, &QPrintPreviewDialog::paintRequested, &dialog,
      [&document](QPrinter* target) { drawDocument(document, *target); }, Qt::DirectConnection);
  dialog.exec();
  UserSettings::saveWindow(dialog, QStringLiteral("preview"));
}

bool writePdf(const PrintDocument& document, const QString& file) {
  QBuffer bytes;
  bytes.open(QIODevice::WriteOnly);
  {
    QPdfWriter writer(&bytes);
    writer.setResolution(kPdfResolution);
    writer.setPageSize(paper());
    writer.setTitle(document.title);
    writer.setCreator(QStringLiteral("Dealer Gauge 2"));
    setUpPages(document, writer);
    drawDocument(document, writer);
  }
  return writeFile(file, bytes.data());
}

}  // namespace dg
