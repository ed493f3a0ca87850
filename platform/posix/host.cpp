#include <arpa/inet.h>
#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <cstring>
#include <memory>
#include <mutex>
#include <netdb.h>
#include <netinet/in.h>
#include <optional>
#include <system_error>
#include <thread>
#include <vector>

#include "platform/environment.h"

namespace dg {

namespace {

constexpr std::int32_t kUnresolved = -1;

/// A name server that does not answer must not hold up the program's start for longer.
constexpr std::chrono::seconds kLongestLookUp{5};

std::int32_t fromNetworkBytes(const void* address) {
  unsigned char bytes[4];
  std::memcpy(bytes, address, sizeof bytes);
  std::uint32_t value = 0;
  for (int i = 3; i >= 0; --i)
    value = value << 8 | bytes[i];
  return static_cast<std::int32_t>(value);
}

/// The host record's first address. The newer look-up sorts the addresses and so gives another
/// first one on hosts that have several.
std::int32_t lookUp(const std::string& name) {
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
    return usable ? fromNetworkBytes(found->h_addr_list[0]) : kUnresolved;
  }
  return kUnresolved;
}

/// A look-up's answer, shared with the thread that may still wait for it when nobody else does.
struct Answer {
  std::mutex mutex;
  std::condition_variable arrived;
  std::optional<std::int32_t> address;
};

}  // namespace

std::int32_t resolveHost(const std::string& name) {
  if (name.empty() || name.find('\0') != std::string::npos) return kUnresolved;
  const in_addr_t dotted = ::inet_addr(name.c_str());
  if (dotted != INADDR_NONE) return fromNetworkBytes(&dotted);

  const auto answer = std::make_shared<Answer>();
  try {
    std::thread([answer, name] {
      const std::int32_t address = lookUp(name);
      const std::lock_guard<std::mutex> lock(answer->mutex);
      answer->address = address;
      answer->arrived.notify_one();
    }).detach();
  } catch (const std::system_error&) {
    return kUnresolved;
  }
  std::unique_lock<std::mutex> lock(answer->mutex);
  answer->arrived.wait_for(lock, kLongestLookUp, [&] { return answer->address.has_value(); });
  return answer->address.value_or(kUnresolved);
}

}  // namespace dg
