#pragma once

#include <algorithm>
#include <atomic>
#include <chrono>
#include <functional>
#include <memory>
#include <new>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>

#include "platform/patience.h"
#include "platform/system_file.h"
#include "platform/values/run_time_error.h"

namespace dg {

/// The line to the share, as a load finds it, and the calls that go over it.
///
/// A call of a share that does not answer cannot be ended. So where the line is far, calls are made
/// on a thread of their own, and whoever waits for one can give it up: it goes on until the system
/// ends it, and what it brings is dropped. From then on the line is silent, and every call fails at
/// once.
///
/// A line is far where it leads to another machine, and while answers are slow: a disk that has to
/// turn. One slow answer alone may be this machine's own delay, and quick ones come from what the
/// system knows already: so a slow one weighs more, and it takes a few of them.
class ShareLine {
 public:
  /// What the answer to a call tells of the line.
  enum class Tells {
    kAll,
    kOnlyIfSlow,  ///< the system may know it already
  };

  /// An answer that takes longer than `near` is a slow one.
  ShareLine(std::chrono::microseconds near, std::chrono::milliseconds patience);
  ~ShareLine();
  ShareLine(const ShareLine&) = delete;
  ShareLine& operator=(const ShareLine&) = delete;

  /// Also while no call has been answered yet.
  bool isFar() const { return !isKnown_ || leadsAway_ || isSlow(); }
  bool isSilent() const { return isSilent_; }
  /// Finds out, once, whether the line leads to another machine, by a path of its share. Raises 57
  /// on a silent line.
  void meet(const std::string& path) {
    if (std::exchange(isMet_, true)) return;
    leadsAway_ = call([path] { return liesOnOtherMachine(path); }, Tells::kOnlyIfSlow);
  }
  /// Learns from an answer. On any thread.
  void note(std::chrono::steady_clock::duration answer, Tells tells = Tells::kAll) {
    if (tells == Tells::kOnlyIfSlow && answer <= near_) return;
    // What another thread notes at the same time may be lost: one answer more or less.
    const int weight = slowness_;
    slowness_ =
        answer > near_ ? std::min(weight + kSlowAnswer, kMostSlowness) : std::max(weight - 1, 0);
    isKnown_ = true;
  }
  /// As waitPatiently; where that gives up, the line is silent.
  bool wait(std::condition_variable& came, std::unique_lock<std::mutex>& lock,
            const std::function<bool()>& isThere);

  /// What `make` gives or raises; it must own all that it uses. Raises 57 on a silent line.
  template <class Make>
  std::invoke_result_t<Make> call(Make make, Tells tells = Tells::kAll) {
    using Result = std::invoke_result_t<Make>;
    if (isSilent_) throw RunTimeError(kDeviceIoError);
    if (!isFar()) {
      const Timed timed(*this, tells);
      return make();
    }
    struct Answer {
      std::optional<Result> result;
      std::optional<RunTimeError> error;
    };
    auto answer = std::make_shared<Answer>();
    // The first call finds out which kind of line it is, and may be the one that has no answer.
    run(
        [answer, make = std::move(make)]() mutable {
          try {
            answer->result.emplace(make());
          } catch (const RunTimeError& error) {
            answer->error.emplace(error);
          } catch (const std::bad_alloc&) {  // NOLINT(bugprone-empty-catch): then there is neither
          }
        },
        tells);
    if (answer->error) throw *std::move(answer->error);
    if (!answer->result) throw std::bad_alloc();
    return *std::move(answer->result);
  }

  /// Notes how long it lives: as long as a call takes that is made past call().
  class Timed {
   public:
    explicit Timed(ShareLine& line, Tells tells = Tells::kAll) : line_(line), tells_(tells) {}
    ~Timed() { line_.note(std::chrono::steady_clock::now() - begin_, tells_); }
    Timed(const Timed&) = delete;
    Timed& operator=(const Timed&) = delete;

   private:
    ShareLine& line_;
    Tells tells_;
    std::chrono::steady_clock::time_point begin_ = std::chrono::steady_clock::now();
  };

 private:
  struct Caller;

  /// What a slow answer weighs against quick ones, and beyond which weight a line is far.
  static constexpr int kSlowAnswer = 16;
  static constexpr int kFarSlowness = 32;
  static constexpr int kMostSlowness = 64;
  bool isSlow() const { return slowness_ > kFarSlowness; }

  /// Raises 57 when the call is given up.
  void run(std::function<void()> call, Tells tells);

  std::chrono::microseconds near_;
  std::chrono::milliseconds patience_;
  bool isMet_ = false;
  std::atomic<bool> leadsAway_ = false;
  std::atomic<bool> isKnown_ = false;
  /// A first answer that is slow settles it.
  std::atomic<int> slowness_ = kFarSlowness - kSlowAnswer + 1;
  std::atomic<bool> isSilent_ = false;
  std::shared_ptr<Caller> caller_;
};

}  // namespace dg
