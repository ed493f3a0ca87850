#include <arpa/inet.h>
#include <cerrno>
#include <netdb.h>
#include <netinet/in.h>
#include <vector>

#include "platform/host_look_up.h"
#include "platform/network_bytes.h"

namespace dg {

std::optional<std::int32_t> dottedAddress(const std::string& text) {
  const in_addr_t address = ::inet_addr(text.c_str());
  if (address == INADDR_NONE) return std::nullopt;
  return integerFromNetworkBytes(&address);
}

// The newer look-up sorts the addresses, and so gives another first one on hosts with several.
std::int32_t lookUpHost(const std::string& name) {
  constexpr std::size_t kLargestRecord = std::size_t{1} << 20;
  for (std::size_t size = 1024; size <= kLargestRecord; size *= 2) {
    std::vector<char> space(size);
    hostent record = {};
    hostent* found = nullptr;
    int reason = 0;
    const int result =
        ::gethostbyname_r(name.c_str(), &record, space.data(), space.size(), &found, &reason);
    if (result == ERANGE) continue;
    const bool usable = result == 0 && found && found->h_addrtype == AF_INET &&
                        found->h_length == 4 && found->h_addr_list[0];
    return usable ? integerFromNetworkBytes(found->h_addr_list[0]) : -1;
  }
  return -1;
}

}  // namespace dg
