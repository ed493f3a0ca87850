#include "platform/posix/descriptor.h"

#include <cerrno>
#include <fcntl.h>

#include "platform/posix/system_error.h"
#include "platform/values/run_time_error.h"

namespace dg {

Descriptor openDescriptor(const char* path, int flags, unsigned mode) {
  int descriptor = -1;
  do {
    descriptor = ::open(path, flags | O_CLOEXEC | O_NOCTTY, mode);
  } while (descriptor < 0 && errno == EINTR);
  return Descriptor(descriptor);
}

void writeFully(int descriptor, std::string_view data) {
  while (!data.empty()) {
    const ssize_t written = ::write(descriptor, data.data(), data.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) throw RunTimeError(transferErrorNumber(errno));
    if (written == 0) throw RunTimeError(kDiskFull);
    data.remove_prefix(static_cast<std::size_t>(written));
  }
}

}  // namespace dg
