#pragma once

namespace dg {

/// Whether standard error is a terminal.
bool errorStreamIsTerminal();

/// Makes standard output take UTF-8 bytes as they are: line ends are the commands' own.
void makeOutputBinary();

}  // namespace dg
