#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/text.h"
#include "platform/values/run_time_error.h"

namespace dg {

/// An ordered collection of objects, some with a key. Keys compare without regard to case, as the
/// run-time's collections do. Positions count from 1.
template <class T>
class Collection {
 public:
  using Pointer = std::shared_ptr<T>;

  /// Appends `item`; an empty key means none. Raises 457 when the key is taken.
  Pointer insert(Pointer item, std::string_view key) {
    std::string folded = upperCase(key);
    if (!folded.empty() && !byKey_.emplace(folded, item).second) {
      throw RunTimeError(457, "",
                         "This key is already associated with an element of this collection");
    }
    items_.push_back({std::move(item), std::move(folded)});
    return items_.back().item;
  }

  /// The item of a key, or an empty pointer.
  Pointer find(std::string_view key) const {
    const auto found = byKey_.find(upperCase(key));
    return found == byKey_.end() ? nullptr : found->second;
  }

  /// The item of a key; raises 5 when there is none.
  Pointer Item(std::string_view key) const {
    Pointer item = find(key);
    if (!item) throw RunTimeError(kInvalidProcedureCall);
    return item;
  }
  /// The item at a 1-based position; raises 9.
  Pointer Item(std::int32_t index) const { return at(index).item; }

  std::int32_t Count() const { return static_cast<std::int32_t>(items_.size()); }

  /// Removes the item of a key; raises 5 when there is none.
  void Remove(std::string_view key) {
    const std::string folded = upperCase(key);
    for (auto it = items_.begin(); it != items_.end(); ++it) {
      if (!folded.empty() && it->key == folded) {
        byKey_.erase(folded);
        items_.erase(it);
        return;
      }
    }
    throw RunTimeError(kInvalidProcedureCall);
  }
  /// Removes the item at a 1-based position; raises 9.
  void Remove(std::int32_t index) {
    byKey_.erase(at(index).key);
    items_.erase(items_.begin() + (index - 1));
  }

  /// The items in order, for a loop over all.
  std::vector<Pointer> NewEnum() const {
    std::vector<Pointer> result;
    result.reserve(items_.size());
    for (const Entry& entry : items_)
      result.push_back(entry.item);
    return result;
  }

 private:
  struct Entry {
    Pointer item;
    std::string key;  // folded; empty for none
  };

  const Entry& at(std::int32_t index) const {
    if (index < 1 || index > Count()) throw RunTimeError(kSubscriptOutOfRange);
    return items_[static_cast<std::size_t>(index) - 1];
  }

  std::vector<Entry> items_;
  std::unordered_map<std::string, Pointer> byKey_;
};

}  // namespace dg
