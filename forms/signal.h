#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace dg {

/// Ends an observation when it goes out of scope.
class Connection {
 public:
  Connection() = default;
  explicit Connection(std::function<void()> disconnect) : disconnect_(std::move(disconnect)) {}
  Connection(Connection&& other) noexcept
      : disconnect_(std::exchange(other.disconnect_, nullptr)) {}
  Connection& operator=(Connection&& other) noexcept {
    if (this != &other) {
      disconnect();
      disconnect_ = std::exchange(other.disconnect_, nullptr);
    }
    return *this;
  }
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;
  ~Connection() { disconnect(); }

  void disconnect() {
    if (disconnect_) std::exchange(disconnect_, nullptr)();
  }

 private:
  std::function<void()> disconnect_;
};

/// A list of observers. An observer may disconnect itself or others while it is called, and the
/// connection may outlive the signal.
template <class... Args>
class Signal {
 public:
  using Observer = std::function<void(Args...)>;

  Signal() = default;
  Signal(const Signal&) = delete;
  Signal& operator=(const Signal&) = delete;

  [[nodiscard]] Connection connect(Observer observer) {
    const std::uint64_t id = ++lastId_;
    observers_->push_back({id, std::move(observer)});
    return Connection([list = std::weak_ptr<List>(observers_), id] {
      if (const auto alive = list.lock()) {
        std::erase_if(*alive, [id](const Entry& entry) { return entry.id == id; });
      }
    });
  }

  void emit(Args... args) const {
    if (observers_->empty()) return;
    // The signal itself may go while it is emitted, and so may any observer.
    const std::shared_ptr<const List> list = observers_;
    const List snapshot(list->begin(), list->end());
    for (const Entry& entry : snapshot) {
      const bool stillThere = std::any_of(list->begin(), list->end(),
                                          [&](const Entry& other) { return other.id == entry.id; });
      if (stillThere) entry.observer(args...);
    }
  }

 private:
  struct Entry {
    std::uint64_t id;
    Observer observer;
  };
  using List = std::vector<Entry>;

  std::shared_ptr<List> observers_ = std::make_shared<List>();
  std::uint64_t lastId_ = 0;
};

}  // namespace dg
