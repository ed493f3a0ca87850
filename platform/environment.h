#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace dg {

/// Where this process finds what lies outside it. Filled once at start-up from the environment, and
/// changed only by options that stand in for the variables.
struct Environment {
  std::string temp;          ///< the user's temporary directory: has the catalog file
  std::string shareRoot;     ///< folder that holds server/share/...; empty on Windows: none needed
  std::string computerName;  ///< this workstation's name
  std::string settingsFile;  ///< ini file of the per-user settings; empty: the system's own store
  std::string desktopFile =
      {};  ///< what the desktop program remembers of this user; empty: nothing
  /// Store directory in place of the one that the catalog file names; empty: the catalog's.
  std::string directory = {};
  std::string dataFolder = {};  ///< what the program keeps for this user; empty: no such folder
  /// Directory of the operation log where it need not be `temp`: on Windows the value of "TEMP",
  /// set or not, while the temporary directory is what the system says.
  std::optional<std::string> logFolder = std::nullopt;
};

/// The process's environment. The first call fills it from the variables and the system: `temp`
/// from $TEMP, else $TMPDIR, else /tmp; `shareRoot` from $DG_SHARE_ROOT; `directory` from
/// $DG_DIRECTORY; `computerName` from $COMPUTERNAME, else the host name; `settingsFile` and
/// `desktopFile` from $XDG_CONFIG_HOME, else ~/.config; `dataFolder` from $XDG_DATA_HOME, else
/// ~/.local/share. On Windows the user's temporary directory, the system's computer name, the
/// registry, and %LOCALAPPDATA% for the last two; no share root but by an option.
Environment& environment();

/// A path that the program composed with backslashes, as this platform's: UNC paths are mapped
/// below the share root, a backslash is a separator. Each name below the share root is tried as it
/// is written, then without regard to case. Names that would lead out of the share (".."), or that
/// hold a NUL, a separator or a drive letter where a name stands, or that are a device's of
/// Windows, give nothing; so does a UNC path while there is no share root. On Windows a path that
/// is not refused stays as it is, but for a UNC path while there is a share root.
std::optional<std::string> nativePath(const std::string& path);

/// The IPv4 address of a host name or dotted text, its four bytes in network order read as one
/// little-endian integer; -1 when it does not resolve within a few seconds. A dotted text needs no
/// look-up, and a name is looked up once in the life of the process, whatever the answer. For the
/// program's own thread.
std::int32_t resolveHost(const std::string& name);
/// Begins the look-up that resolveHost then waits for, beside what the caller does meanwhile. The
/// few seconds count from here.
void beginToResolve(const std::string& name);

/// Whether the root of a share, such as "\\server\share\", can be reached.
bool shareIsReachable(const std::string& root);

}  // namespace dg
