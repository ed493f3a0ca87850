#pragma once

#include <QByteArray>
#include <QString>

class QWidget;

namespace dg {

/// Asks where to export to, starting in the folder of the last export. Returns the file's path with
/// an ending, or an empty text when the user cancels.
QString askForExportFile(QWidget* parent, const QString& title, const QString& suffix,
                         const QString& kind);

/// Writes a file whole or not at all; returns whether it could be written.
bool writeFile(const QString& file, const QByteArray& content);

/// Remembers the folder of a file that was written, or tells that it was not. Returns `written`.
bool exported(QWidget* parent, const QString& file, bool written, const QString& problem = {});

}  // namespace dg
