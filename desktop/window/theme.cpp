#include "desktop/window/theme.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QStyleFactory>

namespace dg {

namespace {

QColor mix(const QColor& a, const QColor& b, double share) {
  const auto channel = [share](int x, int y) { return qRound(x + (y - x) * share); };
  return {channel(a.red(), b.red()), channel(a.green(), b.green()), channel(a.blue(), b.blue())};
}

struct FixedColors {
  QRgb window, windowText, base, alternate, button, highlight, highlightedText, link, toolTip;
};
constexpr FixedColors kLightColors = {0xfff3f4f6, 0xff1c2127, 0xffffffff, 0xfff7f8fa, 0xfffbfbfc,
                                      0xff1f6fb2, 0xffffffff, 0xff0b5fa5, 0xfffffbe6};
constexpr FixedColors kDarkColors = {0xff2a2e33, 0xffe6e9ed, 0xff1d2024, 0xff24282c, 0xff3a3f46,
                                     0xff2f7fc4, 0xffffffff, 0xff7dbcf5, 0xff343a41};

QPalette fixedPalette(const FixedColors& colors) {
  QPalette palette{QColor(colors.button), QColor(colors.window)};
  const QColor text(colors.windowText);
  palette.setColor(QPalette::WindowText, text);
  palette.setColor(QPalette::Text, text);
  palette.setColor(QPalette::ButtonText, text);
  palette.setColor(QPalette::ToolTipText, text);
  palette.setColor(QPalette::Base, QColor(colors.base));
  palette.setColor(QPalette::AlternateBase, QColor(colors.alternate));
  palette.setColor(QPalette::ToolTipBase, QColor(colors.toolTip));
  palette.setColor(QPalette::Highlight, QColor(colors.highlight));
  palette.setColor(QPalette::HighlightedText, QColor(colors.highlightedText));
  palette.setColor(QPalette::Link, QColor(colors.link));
  palette.setColor(QPalette::PlaceholderText, mix(text, QColor(colors.base), 0.45));
  const QColor faint = mix(text, QColor(colors.window), 0.55);
  for (const QPalette::ColorRole role :
       {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, faint);
  }
  return palette;
}

bool hasTabularDigits(const QFont& font) {
  const QFontMetricsF metrics(font);
  const double width = metrics.horizontalAdvance(u'0');
  for (char16_t digit = u'1'; digit <= u'9'; ++digit) {
    if (qAbs(metrics.horizontalAdvance(digit) - width) > 0.01) return false;
  }
  return true;
}

}  // namespace

void applyTheme(Theme theme) {
  if (theme == Theme::kSystem) return;
  QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
  QApplication::setPalette(fixedPalette(theme == Theme::kDark ? kDarkColors : kLightColors));
}

bool isDark(const QPalette& palette) {
  return palette.color(QPalette::Window).lightness() <
         palette.color(QPalette::WindowText).lightness();
}

QColor errorColor(const QPalette& palette) {
  return isDark(palette) ? QColor(0xff, 0x7b, 0x72) : QColor(0xc6, 0x1a, 0x1a);
}

QColor goodColor(const QPalette& palette) {
  return isDark(palette) ? QColor(0x7f, 0xd1, 0x8b) : QColor(0x1b, 0x7a, 0x35);
}

QColor mutedColor(const QPalette& palette) {
  return mix(palette.color(QPalette::WindowText), palette.color(QPalette::Window), 0.35);
}

QColor lineColor(const QPalette& palette) {
  return mix(palette.color(QPalette::Window), palette.color(QPalette::WindowText), 0.16);
}

QColor cardColor(const QPalette& palette) {
  return isDark(palette)
             ? mix(palette.color(QPalette::Window), palette.color(QPalette::WindowText), 0.05)
             : palette.color(QPalette::Base);
}

QColor noticeColor(const QPalette& palette) {
  return isDark(palette) ? QColor(0x4a, 0x3a, 0x12) : QColor(0xff, 0xf3, 0xcd);
}

QColor accentColor(const QPalette& palette) {
  return isDark(palette) ? QColor(0x6c, 0xb2, 0xf0) : QColor(0x1f, 0x6f, 0xb2);
}

QFont figureFont(const QFont& base) {
  if (hasTabularDigits(base)) return base;
  static const QStringList families = {QStringLiteral("Segoe UI"), QStringLiteral("Noto Sans"),
                                       QStringLiteral("Open Sans"), QStringLiteral("DejaVu Sans"),
                                       QStringLiteral("Liberation Sans")};
  for (const QString& family : families) {
    if (!QFontDatabase::hasFamily(family)) continue;
    QFont font = base;
    font.setFamilies({family});
    if (hasTabularDigits(font)) return font;
  }
  return base;
}

QFont scaledFont(const QFont& base, double factor, QFont::Weight weight) {
  QFont font = base;
  if (base.pointSizeF() > 0) {
    font.setPointSizeF(base.pointSizeF() * factor);
  } else {
    font.setPixelSize(qRound(base.pixelSize() * factor));
  }
  font.setWeight(weight);
  return font;
}

}  // namespace dg
