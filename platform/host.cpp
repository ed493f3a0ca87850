#include <atomic>
#include <chrono>
#include <condition_variable>
#include <map>
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

/// A look-up and its answer, shared with the thread that may still wait for it when nobody else
/// does.
struct LookUp {
  std::mutex mutex;
  std::condition_variable arrived;
  std::optional<std::int32_t> address;
  std::chrono::steady_clock::time_point givenUp;
};

std::atomic<HostLookUp> lookUp = lookUpHost;

/// All look-ups of this start, by name, answered or not.
std::map<std::string, std::shared_ptr<LookUp>>& lookUps() {
  static std::map<std::string, std::shared_ptr<LookUp>> begun;
  return begun;
}

/// Whether a text can be looked up at all: the system takes it up to a NUL.
bool isText(const std::string& name) {
  return !name.empty() && name.find('\0') == std::string::npos;
}

}  // namespace

void beginToResolve(const std::string& name) {
  if (!isText(name) || dottedAddress(name) || lookUps().contains(name)) return;
  const auto begun = std::make_shared<LookUp>();
  begun->givenUp = std::chrono::steady_clock::now() + kLongestLookUp;
  lookUps()[name] = begun;
  try {
    std::thread([begun, name, ask = lookUp.load()] {
      const std::int32_t address = ask(name);
      const std::lock_guard<std::mutex> lock(begun->mutex);
      begun->address = address;
      begun->arrived.notify_one();
    }).detach();
  } catch (const std::system_error&) {
    begun->address = kUnresolved;
  }
}

std::int32_t resolveHost(const std::string& name) {
  if (!isText(name)) return kUnresolved;
  if (const std::optional<std::int32_t> dotted = dottedAddress(name)) return *dotted;
  beginToResolve(name);
  LookUp& begun = *lookUps()[name];
  std::unique_lock<std::mutex> lock(begun.mutex);
  begun.arrived.wait_until(lock, begun.givenUp, [&] { return begun.address.has_value(); });
  return begun.address.value_or(kUnresolved);
}

HostLookUp setHostLookUp(HostLookUp replacement) {
  lookUps().clear();
  return lookUp.exchange(replacement == nullptr ? lookUpHost : replacement);
}

}  // namespace dg
