#include "platform/standard_streams.h"

#include <cstdio>
#include <io.h>

namespace dg {

namespace {

void openOnNull(std::FILE* stream, const char* mode) {
  // Negative, too, for a stream of a program without a console.
  const int descriptor = ::_fileno(stream);
  if (descriptor >= 0 && ::_get_osfhandle(descriptor) >= 0) return;
  static_cast<void>(std::freopen("NUL", mode, stream));
}

}  // namespace

void openStandardStreams() {
  openOnNull(stdin, "w");
  openOnNull(stdout, "r");
  openOnNull(stderr, "r");
}

}  // namespace dg
