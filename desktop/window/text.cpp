#include "desktop/window/text.h"

#include <QFile>

#include "platform/text.h"

namespace dg {

QString fromBytes(std::string_view bytes) {
  QString text = QString::fromStdString(utf8FromBytes(bytes));
  text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
  for (QChar& character : text) {
    if (character == u'\r') character = u'\n';
    if (character != u'\n' && character.category() == QChar::Other_Control) character = u' ';
  }
  return text;
}

QString cellText(std::string_view bytes) {
  return fromBytes(bytes).replace(u'\n', u' ');
}

QString titleText(std::string_view bytes) {
  return cellText(bytes).replace(QStringLiteral("[*]"), QStringLiteral("[*][*]"));
}

QString labelText(std::string_view caption) {
  return fromBytes(caption).replace(QStringLiteral("&&"), QStringLiteral("&"));
}

QString plainToolTip(const QString& text) {
  if (text.isEmpty()) return {};
  return QStringLiteral("<span style=\"white-space:pre-wrap\">") + text.toHtmlEscaped() +
         QStringLiteral("</span>");
}

QString fileNameText(const std::filesystem::path& file) {
#ifdef Q_OS_WIN
  return QString::fromStdWString(file.native());
#else
  return QFile::decodeName(file.c_str());
#endif
}

std::string toBytes(const QString& text) {
  return bytesFromUtf8(text.toStdString());
}

}  // namespace dg
