#pragma once

#include <memory>
#include <string>

#include "platform/file.h"

namespace dg {

/// The operating system's files, behind fileSystem() unless a test replaced it.
FileSystem& systemFileSystem();

/// Opens an existing file by a path of the platform's own form. Errors as FileSystem::open.
std::unique_ptr<File> openSystemFile(const std::string& nativeFile, FileAccess access);

/// From now on, folders of a share are looked up and listed once only; or no longer, and what was
/// learnt is forgotten. See ReadAheadScope.
void keepPlaces(bool keep);

/// All bytes from the file's start to its end as it is now. Raises 57, or 7 for more than a text
/// of the run-time can hold.
std::string readAll(File& file);

}  // namespace dg
