#include "shell/options.h"

#include "engine/business_basic.h"
#include "engine/state.h"
#include "engine/text_utilities.h"
#include "platform/text.h"
#include "records/file_names.h"
#include "shell/trap.h"
#include "shell/write_log.h"

namespace dg {

namespace {

/// Block of the control file that holds the company options, one character each.
constexpr std::int32_t kOptionBlock = 401;

}  // namespace

bool GetOption(std::int32_t position) {
  bool isSet = false;
  trapErrors(
      [&] {
        // "Mid" with a position below 1 is an error of the run-time, not an empty text.
        if (position < 1) throw RunTimeError(kInvalidProcedureCall);
        const cBusinessBasic& engine = sharedEngine();
        const FileArgument control = engine.OpenFile(files::kControlFile);
        bool orb = true;
        const std::string options = engine.BlockReadFile(control, kOptionBlock, orb);
        const std::string_view answer = middle(options, static_cast<std::size_t>(position), 1);
        engine.CloseFile(control);
        isSet = answer == "Y";
      },
      [&](const RunTimeError& error) {
        logLine("*" + shellFailureText("Error in GetOption function ", error));
        isSet = false;
      });
  return isSet;
}

std::string FormatPartNumber(std::string& part, const std::string& mask) {
  InsertDashes(part, mask);
  return part;
}

}  // namespace dg
