#pragma once

#include <string>

namespace dg {

/// A per-user setting of an application, or `defaultValue` when there is none. Never raises: a
/// settings file that cannot be read has no settings.
std::string GetSetting(const std::string& application, const std::string& section,
                       const std::string& key, const std::string& defaultValue);

/// Stores a per-user setting; a later start reads it. The settings file is replaced in one step.
/// Raises 70 or 76 when it cannot be written.
void SaveSetting(const std::string& application, const std::string& section, const std::string& key,
                 const std::string& value);

}  // namespace dg
