#include "tools/dgtool/terminal.h"

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#include <stdio.h>
#include <windows.h>
#else
#include <unistd.h>
#endif

namespace dg {

#ifdef _WIN32
bool errorStreamIsTerminal() {
  return _isatty(_fileno(stderr)) != 0;
}

void makeOutputBinary() {
  _setmode(_fileno(stdout), _O_BINARY);
  SetConsoleOutputCP(CP_UTF8);
}
#else
bool errorStreamIsTerminal() {
  return isatty(STDERR_FILENO) != 0;
}

void makeOutputBinary() {}
#endif

}  // namespace dg
