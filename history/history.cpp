#include "history/history.h"

#include <string_view>
#include <system_error>

#include "history/database.h"
#include "history/schema.h"
#include "platform/clock.h"
#include "platform/environment.h"
#include "platform/text_file.h"
#include "platform/values/run_time_error.h"

namespace dg {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kSources[] = {"recap", "attention"};

std::string sourceText(FigureSource source) {
  return std::string(kSources[static_cast<std::size_t>(source)]);
}

FigureSource sourceFrom(std::string_view text) {
  return text == kSources[0] ? FigureSource::kRecap : FigureSource::kAttention;
}

void refuseShare(const fs::path& file) {
  // Of folders that are not there yet, the one that would hold them counts.
  std::error_code error;
  fs::path place = fs::absolute(file, error);
  while (place.has_relative_path() && !fs::exists(place.parent_path(), error))
    place = place.parent_path();
  if (!isOnShare(file) && !isOnShare(place)) return;
  throw HistoryError("the history " + utf8Path(file) +
                     " would lie on the share, where this program writes nothing");
}

bool isThere(const fs::path& file) {
  std::error_code error;
  const fs::file_status status = fs::status(file, error);
  if (!fs::exists(status)) return false;
  if (fs::is_regular_file(status)) return true;
  throw HistoryError("the history " + utf8Path(file) + " is no file");
}

/// What is kept is the user's own business.
void makeFolder(const fs::path& folder) {
  std::error_code error;
  if (folder.empty() || fs::is_directory(folder, error)) return;
  if (!fs::create_directories(folder, error)) {
    throw HistoryError("the folder " + utf8Path(folder) + " cannot be made: " + error.message());
  }
  fs::permissions(folder, fs::perms::owner_all, error);
}

/// Nothing for what is no day: another hand has been at the file.
std::optional<KeptValue> valueFrom(const Statement& row) {
  const std::optional<Date> day = Date::fromIso(row.text(0));
  if (!day) return std::nullopt;
  KeptValue value{
      .day = *day, .amount = Currency::fromTenThousandths(row.integer(1)), .count = std::nullopt};
  if (!row.isNull(2)) value.count = row.integer(2);
  return value;
}

/// Finds the values of a store's figure; the parameters come first, in this order.
constexpr std::string_view kValues =
    "SELECT day, amount, count FROM amounts "
    "WHERE store = (SELECT id FROM stores WHERE server = ? AND directory = ?) "
    "AND figure = (SELECT id FROM figures WHERE source = ? AND name = ?) ";

Statement valuesOf(const Database& database, std::string_view rest, const StoreKey& store,
                   const FigureName& figure) {
  Statement query(database, std::string(kValues).append(rest));
  query.bind(store.server).bind(store.directory);
  query.bind(sourceText(figure.source)).bind(figure.name);
  return query;
}

std::string momentText(Date moment) {
  // The clock's own words: it may be wrong, which is then seen here.
  constexpr int kHour = 3600;
  constexpr int kMinute = 60;
  const auto two = [](int number) {
    return std::string(number < 10 ? "0" : "") + std::to_string(number);
  };
  const int second = moment.secondOfDay();
  return moment.isoText() + "T" + two(second / kHour) + ":" + two(second % kHour / kMinute) + ":" +
         two(second % kMinute);
}

}  // namespace

History::History(std::unique_ptr<Database> database) : database_(std::move(database)) {}
History::~History() = default;
History::History(History&&) noexcept = default;
History& History::operator=(History&&) noexcept = default;

std::optional<History> History::open(const fs::path& file) {
  refuseShare(file);
  if (!isThere(file)) return std::nullopt;
  auto database = std::make_unique<Database>(file, DatabaseAccess::kExisting);
  if (schemaState(*database) == SchemaState::kEmpty) return std::nullopt;
  return History(std::move(database));
}

History History::create(const fs::path& file) {
  if (file.empty()) throw HistoryError("there is no folder for the history");
  refuseShare(file);
  if (!isThere(file)) makeFolder(file.parent_path());
  auto database = std::make_unique<Database>(file, DatabaseAccess::kCreate);
  if (schemaState(*database) == SchemaState::kEmpty) createSchema(*database);
  return History(std::move(database));
}

void History::keep(const StoreKey& store, Date day, std::span<const KeptFigure> figures) {
  if (figures.empty()) return;
  Transaction transaction(*database_);
  Statement(*database_, "INSERT OR IGNORE INTO stores (server, directory) VALUES (?, ?)")
      .bind(store.server)
      .bind(store.directory)
      .execute();
  Statement find(*database_, "SELECT id FROM stores WHERE server = ? AND directory = ?");
  find.bind(store.server).bind(store.directory).step();
  const std::int64_t id = find.integer(0);
  const std::string text = day.isoText();
  Statement(*database_,
            "INSERT INTO days VALUES (?, ?, ?) "
            "ON CONFLICT (store, day) DO UPDATE SET kept = excluded.kept")
      .bind(id)
      .bind(text)
      .bind(momentText(now()))
      .execute();
  Statement name(*database_, "INSERT OR IGNORE INTO figures (source, name) VALUES (?, ?)");
  Statement value(*database_,
                  "INSERT INTO amounts "
                  "VALUES (?, (SELECT id FROM figures WHERE source = ? AND name = ?), ?, ?, ?) "
                  "ON CONFLICT (store, figure, day) "
                  "DO UPDATE SET amount = excluded.amount, count = excluded.count");
  for (const KeptFigure& each : figures) {
    const std::string source = sourceText(each.figure.source);
    name.bind(source).bind(each.figure.name).execute();
    value.bind(id).bind(source).bind(each.figure.name).bind(text);
    value.bind(each.amount.tenThousandths()).bind(each.count).execute();
  }
  transaction.commit();
}

void History::forget(const StoreKey& store) {
  Transaction transaction(*database_);
  for (const char* table : {"amounts", "days"}) {
    Statement(*database_, std::string("DELETE FROM ") + table +
                              " WHERE store IN (SELECT id FROM stores "
                              "WHERE server = ? AND directory = ?)")
        .bind(store.server)
        .bind(store.directory)
        .execute();
  }
  Statement(*database_, "DELETE FROM stores WHERE server = ? AND directory = ?")
      .bind(store.server)
      .bind(store.directory)
      .execute();
  transaction.commit();
}

std::vector<StoreKey> History::stores() const {
  Statement query(*database_, "SELECT server, directory FROM stores ORDER BY server, directory");
  std::vector<StoreKey> result;
  while (query.step())
    result.push_back({query.text(0), query.text(1)});
  return result;
}

std::vector<Date> History::days(const StoreKey& store) const {
  Statement query(*database_,
                  "SELECT day FROM days WHERE store = "
                  "(SELECT id FROM stores WHERE server = ? AND directory = ?) ORDER BY day");
  query.bind(store.server).bind(store.directory);
  std::vector<Date> result;
  while (query.step()) {
    if (const auto day = Date::fromIso(query.text(0))) result.push_back(*day);
  }
  return result;
}

std::vector<FigureName> History::figures(const StoreKey& store) const {
  Statement query(*database_,
                  "SELECT source, name FROM figures WHERE EXISTS (SELECT 1 FROM amounts "
                  "WHERE figure = figures.id AND store = "
                  "(SELECT id FROM stores WHERE server = ? AND directory = ?)) "
                  "ORDER BY source DESC, name");
  query.bind(store.server).bind(store.directory);
  std::vector<FigureName> result;
  while (query.step())
    result.push_back({sourceFrom(query.text(0)), query.text(1)});
  return result;
}

std::vector<KeptValue> History::values(const StoreKey& store, const FigureName& figure,
                                       std::optional<Date> since) const {
  Statement query = valuesOf(*database_, "AND day >= ? ORDER BY day", store, figure);
  query.bind(since ? since->isoText() : std::string());
  std::vector<KeptValue> result;
  while (query.step()) {
    if (const auto value = valueFrom(query)) result.push_back(*value);
  }
  return result;
}

std::optional<KeptValue> History::last(const StoreKey& store, const FigureName& figure,
                                       Date notAfter, Date notBefore) const {
  Statement query =
      valuesOf(*database_, "AND day BETWEEN ? AND ? ORDER BY day DESC LIMIT 1", store, figure);
  query.bind(notBefore.isoText()).bind(notAfter.isoText());
  if (!query.step()) return std::nullopt;
  return valueFrom(query);
}

fs::path defaultHistoryFile() {
  const std::string& folder = environment().dataFolder;
  return folder.empty() ? fs::path() : pathFromBytes(folder) / "history.sqlite";
}

}  // namespace dg
