#pragma once

#include "desktop/report.h"

class QPagedPaintDevice;
class QWidget;

namespace dg {

/// Sets page margins, and landscape where the report's widest table asks for it.
void setUpPages(const Report& report, QPagedPaintDevice& device);

/// Draws a report's pages from `first` to `last`, counted from 1; 0 for `last`: to the end.
void drawReport(const Report& report, QPagedPaintDevice& device, int first = 1, int last = 0);

/// Asks for a printer and prints. A cancel prints nothing.
void printReport(const Report& report, QWidget* parent);

/// Shows the pages as they would print; prints from there too.
void previewReport(const Report& report, QWidget* parent);

/// Writes a PDF file, whole or not at all; returns whether it could be written.
bool writePdf(const Report& report, const QString& file);

}  // namespace dg
