#pragma once

#include <QStringList>

class QWidget;

namespace dg {

/// Leaves each letter of an Alt key to one button, the first that has it: where two have the same,
/// the key only moves between them. Buttons below `root` whose letter is taken, by one before them
/// or by one of these other texts, keep their text and go without.
void keepKeysUnique(QWidget& root, const QStringList& others = {});

}  // namespace dg
