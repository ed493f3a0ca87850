#include "desktop/window/launch.h"

int main(int argc, char** argv) {
  return dg::runDesktop(argc, argv);
}
