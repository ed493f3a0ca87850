#include "platform/scratch_file.h"

#include <array>
#include <system_error>
#include <windows.h>

#include "platform/system_file.h"
#include "platform/text_file.h"
#include "platform/values/run_time_error.h"
#include "platform/windows/system_error.h"

namespace dg {

ScratchFile::ScratchFile() {
  std::array<char, MAX_PATH + 1> folder = {};
  std::array<char, MAX_PATH + 1> name = {};
  if (::GetTempPathA(static_cast<DWORD>(folder.size()), folder.data()) == 0 ||
      ::GetTempFileNameA(folder.data(), "dgx", 0, name.data()) == 0) {
    throw RunTimeError(pathErrorNumber(::GetLastError()));
  }
  path_ = name.data();
  named_ = pathFromBytes(path_);
}

ScratchFile::~ScratchFile() {
  std::error_code ignored;
  std::filesystem::remove(named_, ignored);
}

std::string ScratchFile::content() const {
  return readAll(*openSystemFile(path_, FileAccess::kRead));
}

}  // namespace dg
