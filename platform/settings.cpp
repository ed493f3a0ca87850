#include "platform/settings.h"

#include "platform/environment.h"
#include "platform/file.h"
#include "platform/ini_file.h"
#include "platform/system_file.h"
#include "platform/system_settings.h"
#include "platform/text_file.h"
#include "platform/values/run_time_error.h"

namespace dg {

namespace {

std::string textOf(const std::string& settingsFile) {
  return readAll(*openSystemFile(settingsFile, FileAccess::kRead));
}

}  // namespace

std::string GetSetting(const std::string& application, const std::string& section,
                       const std::string& key, const std::string& defaultValue) {
  const std::string& file = environment().settingsFile;
  if (file.empty()) return storedSetting(application, section, key).value_or(defaultValue);
  try {
    return iniValue(textOf(file), section, key).value_or(defaultValue);
  } catch (const RunTimeError&) {
    return defaultValue;
  }
}

void SaveSetting(const std::string& application, const std::string& section, const std::string& key,
                 const std::string& value) {
  const std::string& file = environment().settingsFile;
  if (file.empty()) return storeSetting(application, section, key, value);
  std::string content;
  try {
    content = textOf(file);
  } catch (const RunTimeError& error) {
    // Whatever else keeps the old settings from being read must not make them disappear.
    if (error.number() != kFileNotFound && error.number() != kPathNotFound) throw;
  }
  makeFoldersOf(file);
  replaceFile(pathFromBytes(file), withIniValue(content, section, key, value),
              NewFileMode::kPrivate);
}

}  // namespace dg
