#include "desktop/report_printing.h"

#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QSaveFile>

#include "desktop/report_layout.h"
#include "desktop/user_settings.h"

namespace dg {

namespace {

constexpr QMarginsF kMargins{12, 12, 12, 12};  // millimetres
constexpr QSize kPreviewSize{900, 760};
constexpr int kPdfResolution = 1200;

QSizeF printableSize(const QPagedPaintDevice& device) {
  return device.pageLayout().paintRectPixels(device.logicalDpiX()).size();
}

void prepare(const Report& report, QPrinter& printer) {
  printer.setDocName(report.title);
  printer.setCreator(QStringLiteral("Dealer Gauge 2"));
  setUpPages(report, printer);
}

}  // namespace

void setUpPages(const Report& report, QPagedPaintDevice& device) {
  device.setPageMargins(kMargins, QPageLayout::Millimeter);
  device.setPageOrientation(QPageLayout::Portrait);
  if (ReportLayout::isWiderThan(report, device, printableSize(device).width())) {
    device.setPageOrientation(QPageLayout::Landscape);
  }
}

void drawReport(const Report& report, QPagedPaintDevice& device, int first, int last) {
  QPainter painter;
  if (!painter.begin(&device)) return;
  const ReportLayout layout(report, device, printableSize(device));
  const int end = last > 0 ? qMin(last, layout.pageCount()) : layout.pageCount();
  for (int page = qMax(first, 1); page <= end; ++page) {
    if (page > first) device.newPage();
    layout.paint(painter, page - 1);
  }
}

void printReport(const Report& report, QWidget* parent) {
  QPrinter printer(QPrinter::HighResolution);
  prepare(report, printer);
  QPrintDialog dialog(&printer, parent);
  dialog.setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintPageRange |
                    QAbstractPrintDialog::PrintCollateCopies);
  if (dialog.exec() != QDialog::Accepted) return;
  drawReport(report, printer, qMax(printer.fromPage(), 1), printer.toPage());
}

void previewReport(const Report& report, QWidget* parent) {
  QPrinter printer(QPrinter::HighResolution);
  prepare(report, printer);
  QPrintPreviewDialog dialog(&printer, parent);
  UserSettings::restoreWindow(dialog, QStringLiteral("preview"), kPreviewSize);
  QObject::connect(
      &dialog, &QPrintPreviewDialog::paintRequested, &dialog,
      [&report](QPrinter* target) { drawReport(report, *target); }, Qt::DirectConnection);
  dialog.exec();
  UserSettings::saveWindow(dialog, QStringLiteral("preview"));
}

bool writePdf(const Report& report, const QString& file) {
  QSaveFile target(file);
  if (!target.open(QIODevice::WriteOnly)) return false;
  {
    QPdfWriter writer(&target);
    writer.setResolution(kPdfResolution);
    writer.setTitle(report.title);
    writer.setCreator(QStringLiteral("Dealer Gauge 2"));
    setUpPages(report, writer);
    drawReport(report, writer);
  }
  return target.commit();
}

}  // namespace dg
