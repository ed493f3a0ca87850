#pragma once

#include <array>
#include <optional>
#include <vector>

#include "insight/attention.h"

namespace dg {

/// What needs attention, as the desktop keeps it from one load to the next: the open work that the
/// views' walks tell of, the whole files once somebody has asked for them, and the user's limits.
class TodaysWork {
 public:
  TodaysWork();

  /// A kind as it stands; nothing while its whole file has not been read.
  std::optional<KindResult> result(AttentionKind kind) const;
  Ageing ageing(OpenFamily family) const { return ageingOf(family, items_, today()); }
  std::vector<Ageing> ageing() const { return ageingOf(items_, today()); }

  /// The open work of the last load.
  const OpenItems& items() const { return items_; }

  /// Reads the whole file that a kind needs, unless it was read since the last load. False when
  /// `progress` ended it.
  bool read(AttentionKind kind, const ReadProgress& progress);

  const AttentionLimits& limits() const { return limits_; }
  /// Takes other limits and keeps them for this user. Raises what the settings raise.
  void setLimits(const AttentionLimits& limits);

  /// "Today: 12 kinds need attention", by what has been read so far.
  std::string summary() const;

 private:
  class Items final : public OpenWorkObserver {
   public:
    explicit Items(TodaysWork& owner) : owner_(owner) {}
    void loadBegins() override;
    void loadEnds() override { owner_.items_.loadEnds(); }
    void begin(OpenFamily family) override { owner_.items_.begin(family); }
    void add(OpenFamily family, OpenWork item) override {
      owner_.items_.add(family, std::move(item));
    }
    void end(OpenFamily family) override { owner_.items_.end(family); }
    void fail(OpenFamily family, const RunTimeError& error) override {
      owner_.items_.fail(family, error);
    }

   private:
    TodaysWork& owner_;
  };

  static Date today();

  OpenItems items_;
  std::optional<std::array<WholeFileItems, 2>> customers_;
  std::optional<WholeFileItems> parts_;
  AttentionLimits limits_;
  Items observer_{*this};
  ObservingScope observing_{observer_};
};

}  // namespace dg
