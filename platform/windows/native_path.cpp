#include <windows.h>

#include "platform/environment.h"
#include "platform/share_path.h"
#include "platform/system_file.h"

namespace dg {

namespace {

bool isSeparator(char c) {
  return c == '\\' || c == '/';
}

}  // namespace

std::optional<std::string> nativePath(const std::string& path) {
  if (path.empty() || path.find('\0') != std::string::npos) return std::nullopt;
  // The system takes two separators of either kind as the beginning of a network path or of a
  // device's; the program composes the former only, with backslashes.
  if (path.size() < 2 || !isSeparator(path[0]) || !isSeparator(path[1])) return path;
  const std::optional<std::vector<std::string>> names = sharePathNames(path);
  if (!names) return std::nullopt;
  // Put together anew: a store without a directory has two separators in a row, which not every
  // server takes for one.
  const std::string& root = environment().shareRoot;
  std::string native = root.empty() ? "\\" : root;
  for (const std::string& name : *names)
    native += "\\" + name;
  return native;
}

bool liesOnOtherMachine(const std::string& path) {
  const std::optional<std::string> native = nativePath(path);
  if (!native) return false;
  if (isSeparator(native->front())) return true;
  const std::string drive = native->substr(0, 2) + "\\";
  return ::GetDriveTypeA(drive.c_str()) == DRIVE_REMOTE;
}

/// The system looks names up itself, without regard to case.
void keepPlaces(bool /*keep*/) {}

}  // namespace dg
