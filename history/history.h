#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "history/history_error.h"
#include "history/kept_figure.h"

namespace dg {

class Database;

/// The figures of past days, in one SQLite file of the user's. Several programs may use the file at
/// once. All but moving raises HistoryError.
class History {
 public:
  /// Opens a history that is there; nothing where no file is. A file on the share, of another
  /// program, or of a newer version raises, and is left alone.
  static std::optional<History> open(const std::filesystem::path& file);
  /// The same, and makes the file, and its folder, where there is none.
  static History create(const std::filesystem::path& file);
  ~History();
  History(History&&) noexcept;
  History& operator=(History&&) noexcept;

  /// Keeps a day's figures in one step. Of a day that is there already the figures given are
  /// replaced, the others stay. No figures, no day.
  void keep(const StoreKey& store, Date day, std::span<const KeptFigure> figures);
  /// Forgets all days of a store.
  void forget(const StoreKey& store);

  /// The stores that have days, by server and directory.
  std::vector<StoreKey> stores() const;
  /// The days of a store, from the first.
  std::vector<Date> days(const StoreKey& store) const;
  /// The figures that any day of the store has: those of the recap, then attention, by name.
  std::vector<FigureName> figures(const StoreKey& store) const;
  /// The days of a figure, from the first, or from `since` on.
  std::vector<KeptValue> values(const StoreKey& store, const FigureName& figure,
                                std::optional<Date> since = std::nullopt) const;
  /// The last day of a figure that is not later than one day and not before another.
  std::optional<KeptValue> last(const StoreKey& store, const FigureName& figure, Date notAfter,
                                Date notBefore = Date()) const;

 private:
  explicit History(std::unique_ptr<Database> database);

  std::unique_ptr<Database> database_;
};

/// Where the history of this user is: "history.sqlite" in the environment's data folder. Empty when
/// the user has no such folder.
std::filesystem::path defaultHistoryFile();

}  // namespace dg
