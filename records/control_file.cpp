#include "records/control_file.h"

#include "engine/business_basic.h"
#include "engine/logical_file.h"
#include "engine/open_file.h"
#include "engine/state.h"
#include "platform/file.h"
#include "platform/values/run_time_error.h"
#include "records/file_names.h"
#include "records/read.h"

namespace dg {

using namespace control_file;

void expectStore() {
  iExpectFile(files::kControlFile, FileAccess::kReadWrite, Expected::kSoon);
  iExpectFile(files::kReceivablesSummary, FileAccess::kRead, Expected::kSoon);
  iExpectStore();
}

std::string readControlBlock(std::int32_t block) {
  return readBlock(files::kControlFile, block);
}

std::string readStoreName(const std::string& directory) {
  const auto control = openIfThere(directory + '\\' + files::kControlFile);
  if (!control) throw RunTimeError(kFileNotFound);
  std::string name(kStoreName.width, '\0');
  const std::int64_t at = std::int64_t{kCompanyBlock} * kBlockSize + kStoreName.position - 1;
  if (control->read(at, name.data(), name.size()) < name.size()) throw RunTimeError(kInputPastEnd);
  return name;
}

std::string readStoreName(const cBusinessBasic& engine) {
  const FileArgument control = engine.OpenFile(files::kControlFile);
  bool orb = true;
  const std::string company = engine.BlockReadFile(control, kCompanyBlock, orb);
  std::string name(bytesOf(kStoreName, company));
  engine.CloseFile(control);
  return name;
}

bool companyOption(std::int32_t position) {
  // "Mid" with a position below 1 is an error of the run-time, not an empty text.
  if (position < 1) throw RunTimeError(kInvalidProcedureCall);
  const cBusinessBasic& engine = sharedEngine();
  const FileArgument control = engine.OpenFile(files::kControlFile);
  const std::string options = readBlock(control, kOptionBlock);
  const bool isSet = bytesOf({.position = position, .width = 1}, options) == "Y";
  engine.CloseFile(control);
  return isSet;
}

}  // namespace dg
