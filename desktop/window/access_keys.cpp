#include "desktop/window/access_keys.h"

#include <QAbstractButton>
#include <QKeySequence>
#include <QSet>

namespace dg {

namespace {

/// A caption without its mark; "&&" stands for one "&" and stays.
QString withoutKey(QString text) {
  for (qsizetype at = text.indexOf(u'&'); at >= 0; at = text.indexOf(u'&', at + 2)) {
    if (at + 1 < text.size() && text[at + 1] != u'&') return text.remove(at, 1);
  }
  return text;
}

}  // namespace

void keepKeysUnique(QWidget& root, const QStringList& others) {
  QSet<QString> taken;
  for (const QString& text : others)
    taken.insert(QKeySequence::mnemonic(text).toString());
  for (QAbstractButton* button : root.findChildren<QAbstractButton*>()) {
    const QString key = QKeySequence::mnemonic(button->text()).toString();
    if (key.isEmpty()) continue;
    if (taken.contains(key)) button->setText(withoutKey(button->text()));
    taken.insert(key);
  }
}

}  // namespace dg
