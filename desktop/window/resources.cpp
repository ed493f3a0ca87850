#include "desktop/window/resources.h"

#include <QDir>
#include <QIcon>

/// Stands outside the namespace, as the macro wants it.
static void initialize() {
  Q_INIT_RESOURCE(desktop);
#ifdef Q_OS_WIN
  Q_INIT_RESOURCE(desktop_windows);
#endif
}

namespace dg {

void initializeResources() {
  initialize();
}

QIcon programIcon() {
#ifdef Q_OS_WIN
  return QIcon(QStringLiteral(":/icons/dealergauge.ico"));
#else
  return QIcon(QStringLiteral(":/icons/dealergauge.svg"));
#endif
}

}  // namespace dg
