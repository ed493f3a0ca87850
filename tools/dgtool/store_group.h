#pragma once

#include <CLI/CLI.hpp>
#include <functional>
#include <string>
#include <vector>

#include "shell/store_recap.h"
#include "tools/dgtool/session.h"

namespace dg {

/// A store directory that the link table names. Texts are bytes of the code page.
struct KnownStore {
  std::string directory;
  std::string name;   ///< without the blanks around it
  std::string error;  ///< why its control file cannot be read
};

/// The store directories of the catalog's server, in the order of the link table. A name that would
/// lead elsewhere is told and not followed. Raises UsageError when the server cannot be reached.
std::vector<KnownStore> knownStores(const StoreOptions& options, const Console& console);

/// The directories that a list such as "LNK001,LNK002" means: "all" those of the link table, and an
/// empty list the one that the catalog names. Raises UsageError for a list without a name, and when
/// the server cannot be reached.
std::vector<std::string> wantedStores(const std::string& list, const StoreOptions& options,
                                      const Console& console);

/// Loads stores one after the other, each in a session of its own.
class StoreGroup {
 public:
  /// What else is taken from a store before its session ends.
  using Visitor = std::function<void(const Session& session, frmTRVN& main)>;

  StoreGroup(const ViewCatalogue& catalogue, StoreOptions options, const Console& console)
      : catalogue_(catalogue), options_(std::move(options)), console_(console) {}

  /// Also tells on the error stream, a line each, which store is begun.
  void tellProgress() { tellsProgress_ = true; }
  /// Loads a store. What keeps it from being read stands in the result; `visit` is then not called.
  StoreRecap load(const std::string& directory, const Visitor& visit = {});
  /// Loads all of them.
  std::vector<StoreRecap> load(const std::vector<std::string>& directories,
                               const Visitor& visit = {});

  /// Whether all stores so far were read, and no view of them failed.
  bool isWhole() const { return whole_; }

 private:
  std::string whyUnreadable(const std::string& directory) const;
  /// Raises UsageError and RunTimeError for what keeps a store from being read.
  void read(StoreRecap& store, const Visitor& visit);

  const ViewCatalogue& catalogue_;
  StoreOptions options_;
  const Console& console_;
  bool tellsProgress_ = false;
  bool whole_ = true;
};

/// The option that adds stores: a list of directories, or "all".
void addStoresOption(CLI::App& app, std::string& list);

}  // namespace dg
