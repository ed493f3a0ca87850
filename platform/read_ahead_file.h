#pragma once

#include <memory>
#include <string>

#include "platform/file.h"

namespace dg {

/// `file`, answering from what is kept of `path` while a ReadAheadScope lives.
std::unique_ptr<File> readAheadFile(std::unique_ptr<File> file, std::string path);

/// A file that was expected and that a worker has opened; nothing when there is none.
std::unique_ptr<File> takeExpectedFile(const std::string& path, FileAccess access);

/// Whether files are the operating system's: what tests put in their place is for one thread.
bool systemFilesInPlace();

/// Forgets what the scope in force has kept: files are not what they were.
void forgetKeptBytes();

}  // namespace dg
