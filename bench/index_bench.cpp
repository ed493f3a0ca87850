// Look-ups and walks over keyed indexes, with SQLite's indexed look-up of the same keys beside
// them.

#include <benchmark/benchmark.h>
#include <cstdint>
#include <memory>
#include <sqlite3.h>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/bench_files.h"
#include "engine/codec.h"
#include "engine/keyed_index.h"
#include "platform/file.h"
#include "platform/read_ahead.h"
#include "tools/sample/index_writer.h"
#include "tools/sample/random.h"

namespace dg::bench {

namespace {

constexpr int kKeyLength = 4;

/// Every third number: the numbers between are keys that are not there.
constexpr std::int32_t kKeyStep = 3;

std::string keyOf(std::int32_t number) {
  std::string key(kKeyLength, '\0');
  Pack('L', key, number * kKeyStep, 1);
  return key;
}

/// An index of `count` keys in a file of its own; the file stays in the system's page cache.
struct BenchIndex {
  explicit BenchIndex(std::int32_t count, int fillPercent) {
    std::vector<sample::IndexEntry> entries;
    entries.reserve(static_cast<std::size_t>(count));
    for (std::int32_t i = 1; i <= count; ++i)
      entries.push_back({keyOf(i), i});
    const sample::IndexImage image =
        sample::buildIndex(entries, {.keyLength = kKeyLength, .fillPercent = fillPercent});
    levels = image.levels;
    folder.write("index", image.bytes);
    file = openIndex(folder.file("index"), image.lastBlock);
  }

  BenchFolder folder;
  int levels = 0;
  std::shared_ptr<cLogicalFile> file;
};

/// Numbers from 1 to `count` in an order that defeats read-ahead, the same at every run.
std::vector<std::int32_t> shuffledNumbers(std::int32_t count) {
  std::vector<std::int32_t> numbers;
  sample::Random random(7, "look-ups");
  constexpr std::size_t kLookUps = 1 << 16;
  for (std::size_t i = 0; i < kLookUps; ++i)
    numbers.push_back(random.between(1, count));
  return numbers;
}

/// Whether a benchmark runs as in a load, which keeps what it has read, or as in a window that is
/// opened later, which reads from the file each time.
enum class Reading { kKept, kDirect };

class ReadingScope {
 public:
  explicit ReadingScope(Reading reading)
      : former_(setReadAhead({.isEnabled = reading == Reading::kKept})) {}
  ~ReadingScope() { setReadAhead(former_); }
  ReadingScope(const ReadingScope&) = delete;
  ReadingScope& operator=(const ReadingScope&) = delete;

 private:
  ReadAheadSettings former_;
  ReadAheadScope scope_;
};

void findKeys(benchmark::State& state, Reading reading) {
  const auto count = static_cast<std::int32_t>(state.range(0));
  const BenchIndex index(count, 100);
  const std::vector<std::int32_t> numbers = shuffledNumbers(count);
  const ReadingScope scope(reading);
  std::string cursor;
  std::size_t next = 0;
  const ReadStatistics before = readStatistics();
  for (auto _ : state) {
    std::string key = keyOf(numbers[next++ % numbers.size()]);
    std::int32_t record = 0;
    bool orb = false;
    iKFind(*index.file, cursor, key, record, orb);
    benchmark::DoNotOptimize(record);
    if (record <= 0) throw std::logic_error("key not found");
  }
  const auto finds = static_cast<double>(state.iterations());
  state.counters["levels"] = index.levels;
  state.counters["reads/find"] = static_cast<double>(readStatistics().calls - before.calls) / finds;
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK_CAPTURE(findKeys, kept, Reading::kKept)->Name("KFind/kept")->Arg(100'000)->Arg(1'000'000);
BENCHMARK_CAPTURE(findKeys, direct, Reading::kDirect)
    ->Name("KFind/direct")
    ->Arg(100'000)
    ->Arg(1'000'000);

void walkKeys(benchmark::State& state, Reading reading) {
  const auto count = static_cast<std::int32_t>(state.range(0));
  const BenchIndex index(count, 100);
  for (auto _ : state) {
    const ReadingScope scope(reading);
    std::string cursor;
    std::string key;
    std::int32_t record = 0;
    bool orb = false;
    std::int64_t seen = 0;
    iKFind(*index.file, cursor, key, record, orb);
    // What is found is the key after the empty one: its record comes negated.
    while (record != 0) {
      ++seen;
      iKNext(*index.file, cursor, key, record, orb);
    }
    if (seen != count) throw std::logic_error("walk missed keys");
  }
  state.SetItemsProcessed(state.iterations() * count);
}
BENCHMARK_CAPTURE(walkKeys, kept, Reading::kKept)
    ->Name("KNext/kept")
    ->Arg(1'000'000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(walkKeys, direct, Reading::kDirect)
    ->Name("KNext/direct")
    ->Arg(1'000'000)
    ->Unit(benchmark::kMillisecond);

/// The yardstick: an indexed look-up with a prepared statement, the database in the page cache.
struct Database {
  explicit Database(const BenchFolder& folder, std::int32_t count) {
    check(sqlite3_open(folder.file("keys.db").c_str(), &handle));
    run("PRAGMA journal_mode=OFF; PRAGMA synchronous=OFF;");
    run("CREATE TABLE entries(key BLOB PRIMARY KEY, record INTEGER) WITHOUT ROWID; BEGIN;");
    sqlite3_stmt* insert = nullptr;
    check(sqlite3_prepare_v2(handle, "INSERT INTO entries VALUES(?, ?)", -1, &insert, nullptr));
    for (std::int32_t i = 1; i <= count; ++i) {
      const std::string key = keyOf(i);
      sqlite3_bind_blob(insert, 1, key.data(), kKeyLength, SQLITE_TRANSIENT);
      sqlite3_bind_int(insert, 2, i);
      sqlite3_step(insert);
      sqlite3_reset(insert);
    }
    sqlite3_finalize(insert);
    run("COMMIT;");
    check(sqlite3_prepare_v2(handle, "SELECT record FROM entries WHERE key = ?", -1, &select,
                             nullptr));
    check(sqlite3_prepare_v2(handle, "SELECT key, record FROM entries ORDER BY key", -1, &walk,
                             nullptr));
  }
  ~Database() {
    sqlite3_finalize(select);
    sqlite3_finalize(walk);
    sqlite3_close(handle);
  }
  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;

  void run(const char* statements) const {
    check(sqlite3_exec(handle, statements, nullptr, nullptr, nullptr));
  }
  static void check(int result) {
    if (result != SQLITE_OK) throw std::runtime_error(sqlite3_errstr(result));
  }

  sqlite3* handle = nullptr;
  sqlite3_stmt* select = nullptr;
  sqlite3_stmt* walk = nullptr;
};

void findKeysInSqlite(benchmark::State& state, const char* cacheSetting) {
  const auto count = static_cast<std::int32_t>(state.range(0));
  const BenchFolder folder;
  const Database database(folder, count);
  database.run(cacheSetting);
  // One transaction, as one load of the program is one: no locks are taken between look-ups.
  database.run("BEGIN;");
  const std::vector<std::int32_t> numbers = shuffledNumbers(count);
  std::size_t next = 0;
  for (auto _ : state) {
    const std::string key = keyOf(numbers[next++ % numbers.size()]);
    sqlite3_bind_blob(database.select, 1, key.data(), kKeyLength, SQLITE_STATIC);
    const bool found = sqlite3_step(database.select) == SQLITE_ROW;
    benchmark::DoNotOptimize(sqlite3_column_int(database.select, 0));
    sqlite3_reset(database.select);
    if (!found) throw std::logic_error("key not found");
  }
  database.run("COMMIT;");
  state.SetItemsProcessed(state.iterations());
}
// With its own cache of 2 MiB, and with as much as the program's reads keep.
BENCHMARK_CAPTURE(findKeysInSqlite, own, "PRAGMA cache_size=-2000;")
    ->Name("SQLite/2MiB")
    ->Arg(100'000)
    ->Arg(1'000'000);
BENCHMARK_CAPTURE(findKeysInSqlite, large, "PRAGMA cache_size=-65536;")
    ->Name("SQLite/64MiB")
    ->Arg(100'000)
    ->Arg(1'000'000);

void walkKeysInSqlite(benchmark::State& state) {
  const auto count = static_cast<std::int32_t>(state.range(0));
  const BenchFolder folder;
  const Database database(folder, count);
  for (auto _ : state) {
    std::int64_t seen = 0;
    while (sqlite3_step(database.walk) == SQLITE_ROW) {
      benchmark::DoNotOptimize(sqlite3_column_blob(database.walk, 0));
      benchmark::DoNotOptimize(sqlite3_column_int(database.walk, 1));
      ++seen;
    }
    sqlite3_reset(database.walk);
    if (seen != count) throw std::logic_error("walk missed keys");
  }
  state.SetItemsProcessed(state.iterations() * count);
}
BENCHMARK(walkKeysInSqlite)->Name("SQLite/walk")->Arg(1'000'000)->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace dg::bench
