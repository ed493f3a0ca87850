#include "platform/settings.h"

#include <cerrno>
#include <sys/stat.h>

#include "platform/environment.h"
#include "platform/file.h"
#include "platform/ini_file.h"
#include "platform/posix/system_error.h"
#include "platform/run_time_error.h"
#include "platform/system_file.h"
#include "platform/text_file.h"

namespace dg {

namespace {

std::string settingsText() {
  return readAll(*openSystemFile(environment().settingsFile, FileAccess::kRead));
}

/// Makes the folders of a file that are missing, for the user alone.
void makeFolderOf(const std::string& native) {
  for (std::size_t end = native.find('/', 1); end != std::string::npos;
       end = native.find('/', end + 1)) {
    const std::string folder = native.substr(0, end);
    struct stat status = {};
    if (::stat(folder.c_str(), &status) == 0 || ::mkdir(folder.c_str(), 0700) == 0) continue;
    if (errno == EEXIST) continue;
    throw RunTimeError(errno == ENOENT ? static_cast<int>(kPathNotFound) : pathErrorNumber(errno));
  }
}

}  // namespace

std::string GetSetting(const std::string& /*application*/, const std::string& section,
                       const std::string& key, const std::string& defaultValue) {
  try {
    return iniValue(settingsText(), section, key).value_or(defaultValue);
  } catch (const RunTimeError&) {
    return defaultValue;
  }
}

void SaveSetting(const std::string& /*application*/, const std::string& section,
                 const std::string& key, const std::string& value) {
  const std::string& file = environment().settingsFile;
  if (file.empty()) throw RunTimeError(kPathNotFound);
  std::string content;
  try {
    content = settingsText();
  } catch (const RunTimeError& error) {
    // Whatever else keeps the old settings from being read must not make them disappear.
    if (error.number() != kFileNotFound && error.number() != kPathNotFound) throw;
  }
  makeFolderOf(file);
  replaceFile(file, withIniValue(content, section, key, value), NewFileMode::kPrivate);
}

}  // namespace dg
