#pragma once

#include <QByteArray>
#include <QString>
#include <functional>

class QWidget;

namespace dg {

/// Asks where to export to, starting in the folder of the last export with a name of what it is,
/// the store and the day of the figures; asks again before it replaces a file. Returns the file's
/// path with an ending, or an empty text when the user cancels.
QString askForExportFile(QWidget* parent, const QString& title, const QString& suffix,
                         const QString& kind);

/// Writes a file whole or not at all; returns whether it could be written.
bool writeFile(const QString& file, const QByteArray& content);

/// Remembers the folder of a file that was written and tells where it is, or tells that it was not.
/// Returns `written`.
bool exported(QWidget* parent, const QString& file, bool written, const QString& problem = {});

/// Where the main window tells of an export; empty: nowhere.
void setExportNotice(std::function<void(const QString& file)> notice);

}  // namespace dg
