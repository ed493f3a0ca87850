#include "shell/trap.h"

#include "shell/write_log.h"

namespace dg {

bool trapView(Form& view, std::string_view phrase, const std::function<void()>& body,
              const std::function<void()>& failed) {
  return trapErrors(body, [&](const RunTimeError& error) {
    if (failed) failed();
    view.markIncomplete();
    logLine("*" + viewFailureText(phrase, error));
  });
}

}  // namespace dg
