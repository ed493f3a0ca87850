#pragma once

namespace dg {

/// Starts the system's socket library, once in the process; whether it is usable.
bool startWinsock();

}  // namespace dg
