#include "platform/posix/descriptor.h"

#include <cerrno>
#include <fcntl.h>

#include "platform/posix/system_error.h"
#include "platform/values/run_time_error.h"

namespace dg {

namespace {

/// A file never stands where standard input, output or error would: what is printed would go into
/// it. Programs open those at their start; a library that closes one must do no harm either.
Descriptor aboveStandardStreams(Descriptor opened) {
  if (!opened.isOpen() || opened.get() > STDERR_FILENO) return opened;
  return Descriptor(::fcntl(opened.get(), F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
}

}  // namespace

Descriptor openDescriptor(const char* path, int flags, unsigned mode) {
  int descriptor = -1;
  do {
    descriptor = ::open(path, flags | O_CLOEXEC | O_NOCTTY, mode);
  } while (descriptor < 0 && errno == EINTR);
  return aboveStandardStreams(Descriptor(descriptor));
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
