#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/file.h"

namespace dg {

/// Opens a file that answers from what is kept of its path while a ReadAheadScope lives; one that
/// needs no opening within the scope in force is not opened again.
std::unique_ptr<File> openReadAhead(FileSystem& files, const std::string& path, FileAccess access);

/// Whether something is there: a file that needs no opening is, for others `ask` answers.
bool answerAhead(const std::string& path, const std::function<bool(const std::string&)>& ask);

/// Whether files are the operating system's: what tests put in their place is for one thread.
bool systemFilesInPlace();

/// Forgets what the scope in force has kept: files are not what they were.
void forgetKeptBytes();

}  // namespace dg
