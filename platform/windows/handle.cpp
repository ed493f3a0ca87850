#include "platform/windows/handle.h"

#include <algorithm>

#include "platform/values/run_time_error.h"
#include "platform/windows/system_error.h"

namespace dg {

void writeFully(HANDLE file, std::string_view data) {
  constexpr std::size_t kMostAtOnce = std::size_t{1} << 30;
  while (!data.empty()) {
    const auto count = static_cast<DWORD>(std::min(data.size(), kMostAtOnce));
    DWORD written = 0;
    if (!::WriteFile(file, data.data(), count, &written, nullptr)) {
      throw RunTimeError(transferErrorNumber(::GetLastError()));
    }
    if (written == 0) throw RunTimeError(kDiskFull);
    data.remove_prefix(written);
  }
}

}  // namespace dg
