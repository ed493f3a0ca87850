#include "forms/control.h"

#include <string>

#include "platform/message_box.h"
#include "platform/run_time_error.h"

namespace dg {

void dispatchEvent(const std::function<void()>& body) {
  try {
    body();
  } catch (const RunTimeError& error) {
    MsgBox("Run-time error '" + std::to_string(error.number()) + "':\n\n" + error.description(),
           kCritical);
  }
}

}  // namespace dg
