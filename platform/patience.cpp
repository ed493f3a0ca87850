#include "platform/patience.h"

#include <algorithm>
#include <utility>

namespace dg {

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr milliseconds kBetweenQuestions(50);

WhileWaiting& whileWaiting() {
  static WhileWaiting current;
  return current;
}

}  // namespace

WhileWaiting setWhileWaiting(WhileWaiting whileIt) {
  return std::exchange(whileWaiting(), std::move(whileIt));
}

bool waitPatiently(std::condition_variable& came, std::unique_lock<std::mutex>& lock,
                   milliseconds patience, const std::function<bool()>& isThere) {
  const auto begin = Clock::now();
  while (!came.wait_for(lock, std::min(kBetweenQuestions, patience), isThere)) {
    const auto waited = std::chrono::duration_cast<milliseconds>(Clock::now() - begin);
    if (waited >= patience) return false;
    if (!whileWaiting()) continue;
    lock.unlock();
    const bool goesOn = whileWaiting()(waited);
    lock.lock();
    if (!goesOn) return isThere();
  }
  return true;
}

}  // namespace dg
