#pragma once

#include <cstdint>
#include <string>

#include "engine/business_basic.h"

namespace dg {

// Reading in one line, by the program's engine. All of these raise what the engine raises, and ask
// for the broker's transport as the program has always done; nothing turns that on.

/// A record of a logical file, by the file's name or an object that is open already.
std::string readRecord(const LogicalFileArgument& file, std::int32_t number);

/// A main record and, behind it, the record of the same number that continues it.
std::string readRecord(const LogicalFileArgument& file, const LogicalFileArgument& extension,
                       std::int32_t number);

/// The 512 bytes of a block of a plain file.
std::string readBlock(const FileArgument& file, std::int32_t block);

}  // namespace dg
