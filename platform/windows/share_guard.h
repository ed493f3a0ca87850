#pragma once

#include <filesystem>
#include <string>

namespace dg {

/// Whether a path, there or not, lies on a share that was found to be reachable, or below the
/// folder that stands for the network, by where its folder really is. Nothing of ours is written
/// there.
bool liesOnShare(const std::filesystem::path& file);
/// Notes the root of a share that was found to be reachable, in the program's own form.
void noteShare(const std::string& root);

}  // namespace dg
