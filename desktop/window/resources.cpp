#include "desktop/window/resources.h"

#include <QDir>

/// Stands outside the namespace, as the macro wants it.
static void initialize() {
  Q_INIT_RESOURCE(desktop);
}

namespace dg {

void initializeResources() {
  initialize();
}

}  // namespace dg
