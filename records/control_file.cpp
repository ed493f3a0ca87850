#include "records/control_file.h"

#include "engine/business_basic.h"
#include "engine/logical_file.h"
#include "engine/state.h"
#include "platform/text.h"
#include "platform/values/run_time_error.h"
#include "records/file_names.h"
#include "records/read.h"

namespace dg {

namespace {

/// Holds the company options, one character each.
constexpr std::int32_t kOptionBlock = 401;

}  // namespace

void expectStore() {
  iExpectFile(files::kControlFile, FileAccess::kReadWrite, Expected::kSoon);
  iExpectFile(files::kReceivablesSummary, FileAccess::kRead, Expected::kSoon);
  iExpectStore();
}

std::string readControlBlock(std::int32_t block) {
  return readBlock(files::kControlFile, block);
}

bool companyOption(std::int32_t position) {
  // "Mid" with a position below 1 is an error of the run-time, not an empty text.
  if (position < 1) throw RunTimeError(kInvalidProcedureCall);
  const cBusinessBasic& engine = sharedEngine();
  const FileArgument control = engine.OpenFile(files::kControlFile);
  const std::string options = readBlock(control, kOptionBlock);
  const bool isSet = middle(options, static_cast<std::size_t>(position), 1) == "Y";
  engine.CloseFile(control);
  return isSet;
}

}  // namespace dg
