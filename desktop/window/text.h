#pragma once

#include <QString>
#include <filesystem>
#include <string>
#include <string_view>

namespace dg {

/// The forms' bytes (Windows-1252) as text. Lines are parted by "\n" only; any other control
/// character becomes a blank.
QString fromBytes(std::string_view bytes);

/// As fromBytes, on one line.
QString cellText(std::string_view bytes);

/// As cellText, for a window's title: Qt takes "[*]" there for the mark of unsaved changes.
QString titleText(std::string_view bytes);

/// A label's caption: "&&" stands for one "&".
QString labelText(std::string_view caption);

/// Text for a tool tip. Tool tips take anything that looks like HTML for HTML; a customer's name
/// must show as it is.
QString plainToolTip(const QString& text);

/// A file's name as Qt takes and shows it.
QString fileNameText(const std::filesystem::path& file);

/// Text as a form's bytes; a character outside the code page becomes "?".
std::string toBytes(const QString& text);

}  // namespace dg
