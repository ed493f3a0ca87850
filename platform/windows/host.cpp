#include <winsock2.h>

#include "platform/host_look_up.h"
#include "platform/network_bytes.h"
#include "platform/windows/winsock.h"

namespace dg {

std::optional<std::int32_t> dottedAddress(const std::string& text) {
  const unsigned long address = ::inet_addr(text.c_str());
  if (address == INADDR_NONE) return std::nullopt;
  return integerFromNetworkBytes(&address);
}

// The library keeps one record a thread, so that a late look-up does not disturb the next.
std::int32_t lookUpHost(const std::string& name) {
  if (!startWinsock()) return -1;
  const hostent* found = ::gethostbyname(name.c_str());
  const bool usable =
      found && found->h_addrtype == AF_INET && found->h_length == 4 && found->h_addr_list[0];
  return usable ? integerFromNetworkBytes(found->h_addr_list[0]) : -1;
}

}  // namespace dg
