#pragma once

#include <string>

namespace dg {

/// Name of the suite's workstation settings file in the user's temporary directory.
inline constexpr const char* kCatalogFileName = "cQTCatalog.ini";

/// Where the catalog file is looked for, as the program composes paths.
std::string catalogPath();

/// Reads the catalog file into new SystemInfo and EpcInfo objects, and touches nothing of the
/// share. A missing file ends in a message box and returns false. Raises 13 when "CustomerNumber"
/// is no number.
bool readCatalogFile();

/// Reads the catalog file, fills SystemInfo and EpcInfo, and creates SharedEngine. A missing file
/// ends in a message box and no engine; so does a share that cannot be reached. Raises 13 when
/// "CustomerNumber" is no number.
void ReadCatalogConfiguration();

}  // namespace dg
