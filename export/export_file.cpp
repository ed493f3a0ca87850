#include "export/export_file.h"

#include <string>

#include "platform/text_file.h"
#include "platform/values/run_time_error.h"

namespace dg {

namespace {

std::string reason(const RunTimeError& error) {
  switch (error.number()) {
    case kPathFileAccess:
      return "it is a folder or a device";
    case kPathNotFound:
      return "there is no such folder";
    case kPermissionDenied:
      return "it is protected, or lies on the share";
    default:
      return error.description();
  }
}

template <class Step>
void told(const std::filesystem::path& file, Step step) {
  try {
    step();
  } catch (const RunTimeError& error) {
    const std::u8string name = file.u8string();
    throw ExportError("cannot write " + std::string(name.begin(), name.end()) + ": " +
                      reason(error));
  }
}

}  // namespace

void checkExportPath(const std::filesystem::path& file) {
  told(file, [&] { checkReplaceable(file); });
}

void writeExport(const std::filesystem::path& file, std::string_view content) {
  told(file, [&] { replaceFile(file, content); });
}

}  // namespace dg
