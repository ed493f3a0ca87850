#pragma once

#include <memory>
#include <string>

#include "platform/file.h"

namespace dg {

/// `file`, answering from what is kept of `path` while a ReadAheadScope lives.
std::unique_ptr<File> readAheadFile(std::unique_ptr<File> file, std::string path,
                                    FileAccess access);

/// A file that needs no opening any more: a worker has opened it, or somebody has closed it within
/// the scope in force. Nothing when there is none.
std::unique_ptr<File> takeExpectedFile(const std::string& path, FileAccess access);

/// Whether takeExpectedFile has a file for reading: it is there.
bool isOpenAlready(const std::string& path);

/// Whether files are the operating system's: what tests put in their place is for one thread.
bool systemFilesInPlace();

/// Forgets what the scope in force has kept: files are not what they were.
void forgetKeptBytes();

}  // namespace dg
