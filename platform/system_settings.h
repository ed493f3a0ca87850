#pragma once

#include <optional>
#include <string>

namespace dg {

/// The system's own store of per-user settings, in use while no settings file is named. Outside
/// Windows there is none: nothing is found in it.
std::optional<std::string> storedSetting(const std::string& application, const std::string& section,
                                         const std::string& key);

/// Raises 70 when the store cannot be written, 76 where there is none.
void storeSetting(const std::string& application, const std::string& section,
                  const std::string& key, const std::string& value);

/// Makes the folders that are missing on the way to a file, for the user alone. Raises 70 or 76.
void makeFoldersOf(const std::string& nativeFile);

}  // namespace dg
