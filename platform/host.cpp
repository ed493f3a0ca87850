#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <optional>
#include <system_error>
#include <thread>

#include "platform/environment.h"
#include "platform/host_look_up.h"

namespace dg {

namespace {

constexpr std::int32_t kUnresolved = -1;

/// A name server that does not answer must not hold up the program's start for longer.
constexpr std::chrono::seconds kLongestLookUp{5};

/// A look-up's answer, shared with the thread that may still wait for it when nobody else does.
struct Answer {
  std::mutex mutex;
  std::condition_variable arrived;
  std::optional<std::int32_t> address;
};

}  // namespace

std::int32_t resolveHost(const std::string& name) {
  if (name.empty() || name.find('\0') != std::string::npos) return kUnresolved;
  if (const std::optional<std::int32_t> dotted = dottedAddress(name)) return *dotted;

  const auto answer = std::make_shared<Answer>();
  try {
    std::thread([answer, name] {
      const std::int32_t address = lookUpHost(name);
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
