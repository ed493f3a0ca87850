#include "platform/out_of_memory.h"

#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <gtest/gtest.h>
#include <new>
#include <sstream>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include "tests/support/temporary_folder.h"
#include "tools/dgtool/command_line.h"
#include "tools/sample/sample_store.h"
#include "views/view_catalogue.h"

namespace {

/// Allocations left until one fails; never while it is negative.
std::atomic<std::int64_t> allocationsLeft = -1;

/// Null when there is no memory.
void* allocate(std::size_t size) noexcept {
  if (allocationsLeft >= 0 && allocationsLeft-- == 0) return nullptr;
  return std::malloc(size == 0 ? 1 : size);
}

void* allocateOrThrow(std::size_t size) {
  if (void* memory = allocate(size)) return memory;
  throw std::bad_alloc();
}

}  // namespace

// In the place of the library's, for the whole test program.
void* operator new(std::size_t size) {
  return allocateOrThrow(size);
}
void* operator new[](std::size_t size) {
  return allocateOrThrow(size);
}
void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  return allocate(size);
}
void* operator new[](std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  return allocate(size);
}
void operator delete(void* memory) noexcept {
  std::free(memory);
}
void operator delete[](void* memory) noexcept {
  std::free(memory);
}
void operator delete(void* memory, const std::nothrow_t& /*tag*/) noexcept {
  std::free(memory);
}
void operator delete[](void* memory, const std::nothrow_t& /*tag*/) noexcept {
  std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
  std::free(memory);
}

namespace dg::test {
namespace {

/// Exit status of a run of dgtool in a process of its own whose n-th allocation fails; -1 when it
/// crashed.
int statusWithFailure(const std::vector<std::string>& arguments, std::int64_t n) {
  const pid_t child = ::fork();
  if (child == 0) {
    if (std::freopen("/dev/null", "w", stderr) == nullptr) ::_exit(99);
    std::ostringstream out;
    std::ostringstream err;
    endWhenOutOfMemory("dgtool", 2);
    allocationsLeft = n;
    const int status = runDgtool(arguments, Console{out, err}, viewCatalogue());
    ::_exit(allocationsLeft < 0 ? status : 100);  // 100: nothing failed
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

/// Over the whole of a run: a failure is told by the view that it hit, or ends the run with its
/// message; it never aborts, and never passes for success where a figure is wrong.
TEST(OutOfMemoryTest, EndsInAMessageWhereverMemoryRunsOut) {
  const TemporaryFolder folder;
  const std::string store = folder.file("store");
  writeSampleStore(store, {});
  static_cast<void>(viewCatalogue());
  const std::vector<std::string> report = {"report", "--json",   "--details", "--store",
                                           store,    "--no-log", "--view",    "frmUnits",
                                           "--view", "frmShop",  "--view",    "frmWarranty"};
  const char* tries = std::getenv("DG_MEMORY_TRIES");
  const double growth = tries != nullptr ? 1 + 10.0 / std::atoi(tries) : 1.4;
  int failures = 0;
  for (double n = 0;; n = n * growth + 1) {
    const int status = statusWithFailure(report, static_cast<std::int64_t>(n));
    if (status == 100) break;
    EXPECT_TRUE(status >= 0 && status <= 2)
        << "allocation " << static_cast<std::int64_t>(n) << ": status " << status;
    if (status != 0) ++failures;
  }
  EXPECT_GT(failures, 10);
}

}  // namespace
}  // namespace dg::test
