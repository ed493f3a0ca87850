#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "records/open/open_work.h"

namespace dg {

/// The open work of a store, family by family: told by the walks of the views while they load, or
/// read by walks of its own. For the one thread that reads files.
class OpenItems final : public OpenWorkObserver {
 public:
  struct Family {
    bool isRead = false;
    std::string error;  ///< why it is not read; empty while nobody has tried
    std::vector<OpenWork> items;
  };

  /// A load is told from its begin to its end, with what no walk of it told of.
  void loadBegins() override { clear(); }
  void loadEnds() override { readMissing(); }
  void begin(OpenFamily family) override;
  void add(OpenFamily family, OpenWork item) override;
  void end(OpenFamily family) override;
  void fail(OpenFamily family, const RunTimeError& error) override;

  /// Reads the families that no walk told of completely: a view ends where one of its rows cannot
  /// be shown, which need not keep the rest from being told. Writes nothing to the log, and leaves
  /// the packed-text table as it was. Never raises: what fails stands in the family.
  void readMissing();
  /// Forgets all.
  void clear();

  const Family& family(OpenFamily family) const;

 private:
  Family& at(OpenFamily family) { return families_[static_cast<std::size_t>(family)]; }

  std::array<Family, kOpenFamilies> families_;
};

/// Lets walks tell `items` while it lives.
class ObservingScope {
 public:
  explicit ObservingScope(OpenWorkObserver& observer) : former_(setOpenWorkObserver(&observer)) {}
  ~ObservingScope() { setOpenWorkObserver(former_); }
  ObservingScope(const ObservingScope&) = delete;
  ObservingScope& operator=(const ObservingScope&) = delete;

 private:
  OpenWorkObserver* former_;
};

}  // namespace dg
