#pragma once

namespace dg {

/// The run-time's number for a failed system call's `errno` that has to do with a path.
int pathErrorNumber(int systemError);

/// The run-time's number for the `errno` of a failed read or write of an open file.
int transferErrorNumber(int systemError);

}  // namespace dg
