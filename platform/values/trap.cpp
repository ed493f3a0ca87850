#include "platform/values/trap.h"

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

}  // namespace dg
