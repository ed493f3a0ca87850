// Runs the tests of the desktop program: real widgets and events, drawn into memory.

#include <QApplication>
#include <gtest/gtest.h>

#include "desktop/window/resources.h"
#include "desktop/window/theme.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  // The build asks for the names of the tests: the widgets' libraries have no part in that.
  if (GTEST_FLAG_GET(list_tests)) return RUN_ALL_TESTS();
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  dg::initializeResources();
  dg::applyTheme(dg::Theme::kLight);
  return RUN_ALL_TESTS();
}
