#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/file.h"

namespace dg {

/// The operating system's files, behind fileSystem() unless a test replaced it.
FileSystem& systemFileSystem();

/// Opens an existing file by a path of the platform's own form. Errors as FileSystem::open.
std::unique_ptr<File> openSystemFile(const std::string& nativeFile, FileAccess access);

/// Where a share's file stands if its names are as they are written and the last of them is no
/// link, with the links of its folder resolved, and without a question about the file itself.
/// Nothing for other paths, and where the folder is not there or lies outside the share.
std::optional<std::string> placeAsWritten(const std::string& path);

/// Opens what stands at such a place without a question before: waits for nothing, follows no link.
/// Nothing when it is no ordinary file or cannot be opened so; then whoever asks finds out why. May
/// be called, and the file be read and closed, on any one thread.
std::unique_ptr<File> openAtOnce(const std::string& native, FileAccess access);

/// Whether a share's files are another machine's, by where its folder really lies: as the system
/// has mounted it, no question about it goes over the line.
bool liesOnOtherMachine(const std::string& path);

/// From now on, folders of a share are looked up and listed once only; or no longer, and what was
/// learnt is forgotten. See ReadAheadScope.
void keepPlaces(bool keep);

/// All bytes from the file's start to its end as it is now. Raises 57, or 7 for more than a text
/// of the run-time can hold.
std::string readAll(File& file);

}  // namespace dg
