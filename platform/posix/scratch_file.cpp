#include "platform/scratch_file.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <system_error>
#include <unistd.h>

#include "platform/posix/descriptor.h"
#include "platform/posix/system_error.h"
#include "platform/system_file.h"
#include "platform/text_file.h"
#include "platform/values/run_time_error.h"

namespace dg {

ScratchFile::ScratchFile() {
  std::error_code ignored;
  std::string name =
      (std::filesystem::temp_directory_path(ignored) / "dealergauge-XXXXXX").string();
  Descriptor file(::mkostemp(name.data(), O_CLOEXEC));
  if (!file.isOpen()) throw RunTimeError(pathErrorNumber(errno));
  path_ = "/proc/self/fd/" + std::to_string(file.get());
  if (::access(path_.c_str(), W_OK) == 0) {
    ::unlink(name.c_str());
  } else {
    path_ = name;
    named_ = name;
  }
  descriptor_ = file.release();
}

ScratchFile::~ScratchFile() {
  std::error_code ignored;
  if (!named_.empty()) std::filesystem::remove(named_, ignored);
  ::close(descriptor_);
}

std::string ScratchFile::content() const {
  return readAll(*openSystemFile(path_, FileAccess::kRead));
}

}  // namespace dg
