#include "forms/control.h"

#include <new>
#include <string>

#include "platform/message_box.h"
#include "platform/values/run_time_error.h"

namespace dg {

namespace {

void showRunTimeError(const RunTimeError& error) {
  MsgBox("Run-time error '" + std::to_string(error.number()) + "':\n\n" + error.description(),
         kCritical);
}

}  // namespace

void dispatchEvent(const std::function<void()>& body) {
  try {
    body();
  } catch (const RunTimeError& error) {
    showRunTimeError(error);
  } catch (const std::bad_alloc&) {
    showRunTimeError(RunTimeError(kOutOfMemory));
  }
}

}  // namespace dg
