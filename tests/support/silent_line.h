#pragma once

#include <condition_variable>
#include <limits>
#include <mutex>
#include <thread>

#include "platform/file_call.h"

namespace dg::test {

/// A line that answers so many calls and no further ones, until its end. The thread that made it is
/// always answered: it asks for the workstation's own files.
class SilentLine {
 public:
  explicit SilentLine(int answers) {
    const std::lock_guard<std::mutex> lock(mutex());
    left() = answers;
    workstation() = std::this_thread::get_id();
    former_ = watchFileCalls([](FileCall) { call(); });
  }
  ~SilentLine() {
    watchFileCalls(former_);
    const std::lock_guard<std::mutex> lock(mutex());
    left() = std::numeric_limits<int>::max();
    over().notify_all();
  }
  SilentLine(const SilentLine&) = delete;
  SilentLine& operator=(const SilentLine&) = delete;

 private:
  static void call() {
    std::unique_lock<std::mutex> lock(mutex());
    if (std::this_thread::get_id() == workstation()) return;
    if (left() > 0) --left();
    over().wait(lock, [] { return left() > 0; });
  }
  static int& left() {
    static int calls = 0;
    return calls;
  }
  static std::thread::id& workstation() {
    static std::thread::id one;
    return one;
  }
  static std::mutex& mutex() {
    static std::mutex one;
    return one;
  }
  static std::condition_variable& over() {
    static std::condition_variable one;
    return one;
  }
  FileCallWatcher former_;
};

}  // namespace dg::test
