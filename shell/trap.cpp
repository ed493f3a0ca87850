#include "shell/trap.h"

#include "shell/write_log.h"

namespace dg {

bool trapErrors(const std::function<void()>& body,
                const std::function<void(const RunTimeError&)>& handler) {
  try {
    body();
    return true;
  } catch (const RunTimeError& error) {
    handler(error);
  } catch (const std::bad_alloc&) {
    handler(RunTimeError(kOutOfMemory));
  }
  return false;
}

bool trapView(Form& view, std::string_view phrase, const std::function<void()>& body,
              const std::function<void()>& failed) {
  return trapErrors(body, [&](const RunTimeError& error) {
    if (failed) failed();
    view.markIncomplete();
    logLine("*" + viewFailureText(phrase, error));
  });
}

}  // namespace dg
