#pragma once

#include <QColor>
#include <QFont>
#include <QPalette>

namespace dg {

/// Whose colours the windows take.
enum class Theme {
  kSystem,  ///< the desktop's own palette, light or dark as the user has it
  kLight,   ///< fixed palettes, for pictures that do not depend on a desktop
  kDark,
};

/// Sets the application's palette and style. kSystem leaves both to the platform.
void applyTheme(Theme theme);

bool isDark(const QPalette& palette);

// Colours beside the palette's own, derived from it so that they suit light and dark.
QColor errorColor(const QPalette& palette);   ///< "Data Error !" and other texts in red
QColor goodColor(const QPalette& palette);    ///< changes that are plainly good
QColor mutedColor(const QPalette& palette);   ///< captions and hints
QColor lineColor(const QPalette& palette);    ///< hairlines between rows and around cards
QColor cardColor(const QPalette& palette);    ///< ground of a card on a sheet
QColor noticeColor(const QPalette& palette);  ///< ground of a strip that warns
QColor accentColor(const QPalette& palette);  ///< links, and the first colour of charts

/// A font for figures that stand below each other: `base` where its digits are of one width, else
/// the first installed family near it that has such digits.
QFont figureFont(const QFont& base);

/// `base` enlarged by a factor, with a weight.
QFont scaledFont(const QFont& base, double factor, QFont::Weight weight = QFont::Normal);

}  // namespace dg
