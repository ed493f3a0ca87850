#include "platform/standard_streams.h"
#include "tools/dgtool/command_line.h"

int main(int argc, char** argv) {
  dg::openStandardStreams();
  return dg::runDgtool(argc, argv);
}
