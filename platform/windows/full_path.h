#pragma once

#include <filesystem>

namespace dg {

/// A path from a drive or a server on, by the system's own rules; the path itself where they say
/// nothing. The standard library takes "\\server\share\file" for a path on the current drive.
std::filesystem::path fullPath(const std::filesystem::path& path);

}  // namespace dg
