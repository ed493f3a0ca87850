#pragma once

#include <filesystem>
#include <stdexcept>
#include <string_view>

namespace dg {

/// A file that cannot be written; the text is UTF-8.
class ExportError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Whether an export may be written there, asked before the work for it; raises ExportError.
void checkExportPath(const std::filesystem::path& file);

/// Writes an export whole or not at all, see replaceFile. Raises ExportError.
void writeExport(const std::filesystem::path& file, std::string_view content);

}  // namespace dg
