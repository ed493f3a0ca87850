#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dg {

/// Whether a path is one of the network's, "\\server\share\...".
bool isSharePath(std::string_view path);

/// Whether a name is one that a share can hold, and one name only: it then leads to nowhere else.
bool isShareName(std::string_view name);

/// The names of a network path: the server, the share, and what follows. Runs of backslashes
/// between later names count as one, a closing one does not count.
///
/// Parts of such a path come out of files that other programs write, so a name must be one that a
/// share can hold: nothing comes back when the server or the share is missing, or when a name is
/// made of dots and blanks alone, holds a control character, a slash, a colon or another character
/// that Windows reserves, or is one of its device names ("CON", "lpt1.txt").
std::optional<std::vector<std::string>> sharePathNames(std::string_view path);

}  // namespace dg
