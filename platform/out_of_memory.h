#pragma once

namespace dg {

/// Writes "<program>: out of memory" to standard error without asking for any.
void tellOutOfMemory(const char* program);

/// Where memory runs out at a place that cannot pass the failure on, such as the end of an object,
/// the program ends with that message and this status instead of being aborted.
void endWhenOutOfMemory(const char* program, int status);

}  // namespace dg
