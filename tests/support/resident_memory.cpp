#include "tests/support/resident_memory.h"

#include <gtest/gtest.h>

#ifdef _WIN32
// The second header needs the first one's types.
// clang-format off
#include <windows.h>
#include <psapi.h>
// clang-format on
#else
#include <sys/resource.h>
#endif

namespace dg::test {

std::int64_t residentKilobytes() {
#ifdef _WIN32
  PROCESS_MEMORY_COUNTERS counters = {};
  EXPECT_TRUE(GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters));
  return static_cast<std::int64_t>(counters.PeakWorkingSetSize / 1024);
#else
  struct rusage usage = {};
  EXPECT_EQ(getrusage(RUSAGE_SELF, &usage), 0);
  return usage.ru_maxrss;
#endif
}

}  // namespace dg::test
