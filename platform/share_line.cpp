#include "platform/share_line.h"

#include <condition_variable>
#include <mutex>
#include <system_error>
#include <thread>

namespace dg {

struct ShareLine::Caller {
  std::mutex mutex;
  std::condition_variable callCame;
  std::condition_variable callDone;
  std::function<void()> call;
  std::chrono::steady_clock::duration answer{};  ///< that the last one took
  bool hasThread = false;
  bool isOver = false;

  void work() {
    std::unique_lock<std::mutex> lock(mutex);
    while (true) {
      callCame.wait(lock, [this] { return call || isOver; });
      if (isOver) return;
      lock.unlock();
      const auto begin = std::chrono::steady_clock::now();
      call();
      answer = std::chrono::steady_clock::now() - begin;
      lock.lock();
      call = {};
      callDone.notify_one();
    }
  }
};

ShareLine::ShareLine(std::chrono::microseconds near, std::chrono::milliseconds patience)
    : near_(near), patience_(patience), caller_(std::make_shared<Caller>()) {}

ShareLine::~ShareLine() {
  const std::lock_guard<std::mutex> lock(caller_->mutex);
  caller_->isOver = true;
  caller_->callCame.notify_one();
}

bool ShareLine::wait(std::condition_variable& came, std::unique_lock<std::mutex>& lock,
                     const std::function<bool()>& isThere) {
  if (isSilent_) return isThere();
  if (waitPatiently(came, lock, patience_, isThere)) return true;
  isSilent_ = true;
  return false;
}

void ShareLine::run(std::function<void()> call, Tells tells) {
  std::unique_lock<std::mutex> lock(caller_->mutex);
  if (!caller_->hasThread) {
    try {
      std::thread([caller = caller_] { caller->work(); }).detach();
      caller_->hasThread = true;
    } catch (const std::system_error&) {  // then it is waited for as long as it takes
      lock.unlock();
      call();
      return;
    }
  }
  caller_->call = std::move(call);
  caller_->callCame.notify_one();
  if (!wait(caller_->callDone, lock, [this] { return !caller_->call; })) {
    throw RunTimeError(kDeviceIoError);
  }
  note(caller_->answer, tells);
}

}  // namespace dg
