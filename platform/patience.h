#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>

namespace dg {

/// How long a load waits for a share that does not answer before it takes the share for lost.
inline constexpr std::chrono::seconds kPatience(30);

/// Asked again and again while a load waits for its share, with the time that it has waited for
/// this one answer; false ends the waiting. The one who asks may draw, but not use the share.
using WhileWaiting = std::function<bool(std::chrono::milliseconds waited)>;
/// Returns the former; an empty one waits until patience ends.
WhileWaiting setWhileWaiting(WhileWaiting whileWaiting);

/// Waits until `isThere`, asking what setWhileWaiting has set without the lock. False when patience
/// or the one who was asked ended it.
bool waitPatiently(std::condition_variable& came, std::unique_lock<std::mutex>& lock,
                   std::chrono::milliseconds patience, const std::function<bool()>& isThere);

}  // namespace dg
