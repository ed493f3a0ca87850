#include "desktop/window/launch.h"
#include "platform/standard_streams.h"

int main(int argc, char** argv) {
  dg::openStandardStreams();
  return dg::runDesktop(argc, argv);
}
