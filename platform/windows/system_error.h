#pragma once

namespace dg {

/// The run-time's number for a failed system call that has to do with a path, from GetLastError's.
int pathErrorNumber(unsigned long systemError);

/// The run-time's number for a failed read or write of an open file, from GetLastError's.
int transferErrorNumber(unsigned long systemError);

}  // namespace dg
