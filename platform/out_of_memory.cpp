#include "platform/out_of_memory.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <new>

namespace dg {

namespace {

const char* programName = "";
int endStatus = EXIT_FAILURE;

[[noreturn]] void end() {
  try {
    if (const std::exception_ptr failure = std::current_exception())
      std::rethrow_exception(failure);
  } catch (const std::bad_alloc&) {
    tellOutOfMemory(programName);
    std::_Exit(endStatus);
  } catch (...) {
    std::abort();
  }
  std::abort();
}

}  // namespace

void tellOutOfMemory(const char* program) {
  // Standard error has no buffer of its own to make.
  std::fputs(program, stderr);
  std::fputs(": out of memory\n", stderr);
}

void endWhenOutOfMemory(const char* program, int status) {
  programName = program;
  endStatus = status;
  std::set_terminate(&end);
}

}  // namespace dg
