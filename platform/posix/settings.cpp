#include <cerrno>
#include <sys/stat.h>

#include "platform/posix/system_error.h"
#include "platform/system_settings.h"
#include "platform/values/run_time_error.h"

namespace dg {

std::optional<std::string> storedSetting(const std::string& /*application*/,
                                         const std::string& /*section*/,
                                         const std::string& /*key*/) {
  return std::nullopt;
}

void storeSetting(const std::string& /*application*/, const std::string& /*section*/,
                  const std::string& /*key*/, const std::string& /*value*/) {
  throw RunTimeError(kPathNotFound);
}

void makeFoldersOf(const std::string& nativeFile) {
  for (std::size_t end = nativeFile.find('/', 1); end != std::string::npos;
       end = nativeFile.find('/', end + 1)) {
    const std::string folder = nativeFile.substr(0, end);
    struct stat status = {};
    if (::stat(folder.c_str(), &status) == 0 || ::mkdir(folder.c_str(), 0700) == 0) continue;
    if (errno == EEXIST) continue;
    throw RunTimeError(errno == ENOENT ? static_cast<int>(kPathNotFound) : pathErrorNumber(errno));
  }
}

}  // namespace dg
