#pragma once

#include <string>

namespace dg::sample {

/// The server's terminal table: kWorkstation is kTerminal, among lines of other kinds.
std::string terminalTable();

/// The workstation's catalog settings, which name server and store directory.
std::string catalogSettings();

}  // namespace dg::sample
