#pragma once

#include "desktop/print/print_document.h"

class QPagedPaintDevice;
class QPrinter;
class QWidget;

namespace dg {

/// Sets page margins, and landscape where the document's widest table asks for it.
void setUpPages(const PrintDocument& document, QPagedPaintDevice& device);

/// Draws a document's pages from `first` to `last`, counted from 1; 0 for `last`: to the end.
void drawDocument(const PrintDocument& document, QPagedPaintDevice& device, int first = 1,
                  int last = 0);

/// Asks which printer prints, and which pages; returns false for a cancel, and where there is no
/// printer, which is told.
bool askForPrinter(QPrinter& printer, QWidget* parent);

/// Asks for a printer and prints. A cancel prints nothing.
void printDocument(const PrintDocument& document, QWidget* parent);

/// Shows the pages as they would print; prints from there too.
void previewDocument(const PrintDocument& document, QWidget* parent);

/// Writes a PDF file, whole or not at all; returns whether it could be written.
bool writePdf(const PrintDocument& document, const QString& file);

}  // namespace dg
