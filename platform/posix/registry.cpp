#include "platform/registry.h"

namespace dg {

bool readMachineRegistry(const std::string&, const std::string&, std::uint32_t&, std::string&) {
  return false;
}

bool startProgram(const std::string&) {
  return false;
}

}  // namespace dg
