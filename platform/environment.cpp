#include "platform/environment.h"

#include "platform/system_environment.h"

namespace dg {

Environment& environment() {
  static Environment current = environmentFromSystem();
  return current;
}

}  // namespace dg
