#include "shell/options.h"

#include "records/control_file.h"
#include "shell/trap.h"
#include "shell/write_log.h"

namespace dg {

bool GetOption(std::int32_t position) {
  bool isSet = false;
  trapErrors([&] { isSet = companyOption(position); },
             [&](const RunTimeError& error) {
               logLine("*" + shellFailureText("Error in GetOption function ", error));
               isSet = false;
             });
  return isSet;
}

}  // namespace dg
