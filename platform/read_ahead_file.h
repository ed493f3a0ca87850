#pragma once

#include <memory>
#include <string>

#include "platform/file.h"

namespace dg {

/// `file`, answering from what is kept of `path` while a ReadAheadScope lives.
std::unique_ptr<File> readAheadFile(std::unique_ptr<File> file, std::string path);

/// Forgets what the scope in force has kept: files are not what they were.
void forgetKeptBytes();

}  // namespace dg
