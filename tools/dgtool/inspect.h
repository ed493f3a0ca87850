#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "engine/logical_file.h"
#include "tools/dgtool/console.h"
#include "tools/dgtool/options.h"

namespace dg {

// The `dgtool inspect` commands. Each returns the exit status: 1 when something in the store could
// not be read as it should. They raise UsageError for a store, file, class or control block that is
// not there, and 81 for a record that is not.

/// The logical files of the store's directory.
int inspectFiles(const InspectOptions& options, const Console& console);
/// The entries of a keyed index.
int inspectKeys(const InspectOptions& options, const Console& console);
/// One record of a logical file, or one block of the control file.
int inspectRecord(const InspectOptions& options, const Console& console);

/// A logical file of the store by name; raises UsageError when the link table or the directory has
/// no such name, or when its data file cannot be opened.
std::shared_ptr<cLogicalFile> openLogicalFile(const std::string& name);

/// Bytes as hexadecimal text without blanks, in small letters.
std::string hexText(std::string_view bytes);

}  // namespace dg
