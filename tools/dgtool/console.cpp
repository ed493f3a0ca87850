#include "tools/dgtool/console.h"

namespace dg {

void Console::complain(std::string_view text) const {
  err << "dgtool: " << terminalText(text) << '\n';
}

}  // namespace dg
