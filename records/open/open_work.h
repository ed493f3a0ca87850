#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/values/currency.h"
#include "platform/values/date.h"
#include "platform/values/run_time_error.h"

namespace dg {

/// The families of open work: what a dealership has started, bought or lent and not closed.
enum class OpenFamily {
  kOrders,
  kShop,
  kWarranties,
  kFloorPlan,
  kUnits,
  kPurchaseOrders,
  kReturns,
};
inline constexpr std::size_t kOpenFamilies = 7;

/// The row of a view that an item stands in: the texts of up to two columns tell it from others.
struct OpenRow {
  struct Cell {
    std::string_view column;  ///< empty: not used
    std::string text;
  };
  std::string_view view;  ///< empty: no view shows the item
  std::string_view grid;
  Cell first;
  Cell second;
};

/// One item that a walk met. Dates are kEmptyDate where there is none.
struct OpenWork {
  std::string what;  ///< number of the job, document or unit, or the text the view knows it by
  std::string who;   ///< customer or vendor; empty where there is none
  Currency amount;
  Date date = kEmptyDate;       ///< what its age is counted from
  Date completed = kEmptyDate;  ///< shop jobs
  Date promised = kEmptyDate;   ///< shop jobs
  Date due = kEmptyDate;        ///< floor plan
  Date sold = kEmptyDate;       ///< floor plan
  Date paid = kEmptyDate;       ///< floor plan
  std::string status = {};      ///< shop jobs: the status byte
  bool isOpen = true;           ///< false: sold floor plan, which the view passes over
  bool isWhole = true;          ///< false: its lines ended early, and so did its amount
  OpenRow row = {};
};

/// Who is told what the walks over the open work meet, beside the view for which they run.
class OpenWorkObserver {
 public:
  virtual ~OpenWorkObserver() = default;
  /// The store is about to be loaded or refreshed: what was told before no longer holds.
  virtual void loadBegins() {}
  /// The load is over, and what it has fetched is still kept.
  virtual void loadEnds() {}
  virtual void begin(OpenFamily family) = 0;
  virtual void add(OpenFamily family, OpenWork item) = 0;
  /// The walk of the family came to its end: what was added is all there is.
  virtual void end(OpenFamily family) = 0;
  /// The family's items could not be told completely.
  virtual void fail(OpenFamily family, const RunTimeError& error) = 0;

 protected:
  OpenWorkObserver() = default;
  OpenWorkObserver(const OpenWorkObserver&) = default;
  OpenWorkObserver& operator=(const OpenWorkObserver&) = default;
};

/// Replaces the observer, null for none; returns the former. It must outlive the walks.
OpenWorkObserver* setOpenWorkObserver(OpenWorkObserver* observer);

/// Tells the observer of a load, for as long as it lives.
class OpenWorkLoad {
 public:
  OpenWorkLoad();
  ~OpenWorkLoad();
  OpenWorkLoad(const OpenWorkLoad&) = delete;
  OpenWorkLoad& operator=(const OpenWorkLoad&) = delete;
};

/// Tells the observer of one walk. Nothing that goes wrong in the telling reaches the walk: a view
/// shows the same whether it is observed or not.
class OpenWorkReport {
 public:
  explicit OpenWorkReport(OpenFamily family);

  /// `make` is called only where somebody observes; what it raises fails the family.
  void add(const std::function<OpenWork()>& make);
  /// To be called where the walk ends well.
  void end();

 private:
  void tell(const std::function<void()>& telling);

  OpenFamily family_;
  OpenWorkObserver* observer_;
};

}  // namespace dg
