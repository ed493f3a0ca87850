#include "tools/dgtool/command_line.h"

int main(int argc, char** argv) {
  return dg::runDgtool(argc, argv);
}
