#pragma once

#include <string>

namespace dg {

/// Asks for a printer and prints a text (Windows-1252 bytes) in a fixed-pitch font. A cancel prints
/// nothing.
void printLog(const std::string& text);

}  // namespace dg
