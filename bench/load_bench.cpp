// Whole loads of example stores, from the start of the program to the last view, beside the floor:
// reading the same files once in large pieces. All of it comes from the system's page cache; the
// round trips to a share are simulated.
//
// usage: dg_load_bench [SCALE...]      default: 1 10 100
//
// Writes a table in Markdown to standard output.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <span>
#include <sstream>
#include <string>
#include <vector>

#include "bench/bench_files.h"
#include "bench/watched_file_system.h"
#include "platform/file.h"
#include "platform/read_ahead.h"
#include "tools/dgtool/console.h"
#include "tools/dgtool/session.h"
#include "tools/sample/sample_store.h"
#include "views/view_catalogue.h"

namespace dg::bench {

namespace {

using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;
using std::chrono::microseconds;

/// A share's answer in a good local network.
constexpr microseconds kRoundTrip(500);
/// Repeated runs give the shortest time; one with simulated round trips is long enough by itself.
constexpr int kRepeats = 7;
/// Simulated waiting beyond this is worked out instead of waited for.
constexpr Seconds kLongestWait(30);

constexpr std::size_t kFloorPiece = std::size_t{1} << 20;

struct Measured {
  double seconds = 0;
  std::uint64_t calls = 0;
  std::uint64_t bytes = 0;
  bool isWorkedOut = false;
};

/// The shortest of some runs of `run`.
template <class Run>
Measured measure(int repeats, Run run) {
  Measured best;
  for (int i = 0; i < repeats; ++i) {
    const ReadStatistics before = readStatistics();
    const double seconds = run();
    const ReadStatistics after = readStatistics();
    if (i > 0 && seconds >= best.seconds) continue;
    best = {seconds, after.calls - before.calls, after.bytes - before.bytes};
  }
  return best;
}

/// The surroundings of runs over one store.
class StoreSession {
 public:
  StoreSession(const std::string& store, Date asOf) : session_(options(store, asOf), console_) {}

  /// One load of the whole store, in seconds.
  double load() {
    const auto begin = Clock::now();
    session_.load(viewCatalogue(), {});
    const Seconds seconds = Clock::now() - begin;
    if (session_.storeReachable() && session_.failures().empty()) return seconds.count();
    session_.complain();
    throw std::runtime_error("the store does not load: " + messages_.str());
  }

 private:
  static StoreOptions options(const std::string& store, Date asOf) {
    StoreOptions options;
    options.store = store;
    options.computer = "127.0.0.1";  // looking up a name would be part of the load
    options.asOf = asOf;
    options.noLog = true;
    return options;
  }

  std::ostringstream messages_;
  Console console_{messages_, messages_};
  Session session_;
};

/// Reads files once from end to end, in seconds.
double readThrough(const TouchedExtents& touched) {
  std::vector<char> piece(kFloorPiece);
  const auto begin = Clock::now();
  for (const auto& [path, extents] : touched.byPath()) {
    const auto file = fileSystem().open(path, FileAccess::kRead);
    std::int64_t offset = 0;
    for (std::size_t got = piece.size(); got == piece.size();) {
      got = file->read(offset, piece.data(), piece.size());
      offset += static_cast<std::int64_t>(got);
    }
  }
  return Seconds(Clock::now() - begin).count();
}

/// The example store of one scale, loaded in several ways.
class LoadBench {
 public:
  explicit LoadBench(int scale) {
    sample_.scale = scale;
    writeSampleStore(store_, sample_);
    setFileSystem(std::make_unique<WatchedFileSystem>(microseconds(0), &touched_));
    loadOnce(false);
    setFileSystem(nullptr);
  }
  ~LoadBench() { setFileSystem(nullptr); }
  LoadBench(const LoadBench&) = delete;
  LoadBench& operator=(const LoadBench&) = delete;

  void run() {
    const Measured floor = measure(kRepeats, [this] { return readOnce(); });
    const Measured direct = measure(kRepeats, [this] { return loadOnce(false); });
    const Measured keeping = measure(kRepeats, [this] { return loadOnce(true); });
    std::printf("\n%d files, %s MiB; the load touches %llu extents of 64 KiB in them.\n\n",
                static_cast<int>(touched_.byPath().size()), mebibytes(floor.bytes).c_str(),
                static_cast<unsigned long long>(touched_.count()));
    std::puts(
        "| Scale | Round trip | | Seconds | Times the floor | Read calls | Calls an extent | "
        "MiB read |");
    std::puts("|--:|--:|---|--:|--:|--:|--:|--:|");
    row("none", "floor", floor, floor);
    row("none", "without keeping", direct, floor);
    row("none", "with keeping", keeping, floor);

    setFileSystem(std::make_unique<WatchedFileSystem>(kRoundTrip));
    const Measured farFloor = far(floor, [this] { return readOnce(); });
    row("0.5 ms", "floor", farFloor, farFloor);
    row("0.5 ms", "without keeping", far(direct, [this] { return loadOnce(false); }), farFloor);
    row("0.5 ms", "with keeping", far(keeping, [this] { return loadOnce(true); }), farFloor);
    setFileSystem(nullptr);
  }

 private:
  double loadOnce(bool keeping) {
    const bool formerSetting = setReadAheadEnabled(keeping);
    const double seconds = StoreSession(store_, sample_.asOf).load();
    setReadAheadEnabled(formerSetting);
    return seconds;
  }
  double readOnce() {
    const StoreSession place(store_, sample_.asOf);
    return readThrough(touched_);
  }

  /// The same with round trips: run, or worked out from the run without when it would take long.
  template <class Run>
  static Measured far(const Measured& near, Run run) {
    const double waiting = static_cast<double>(near.calls) * Seconds(kRoundTrip).count();
    if (waiting <= kLongestWait.count()) return measure(1, run);
    return {near.seconds + waiting, near.calls, near.bytes, true};
  }

  void row(const char* roundTrip, const char* way, const Measured& run,
           const Measured& floor) const {
    std::printf("| %d | %s | %s | %s%.4f | %.2f | %llu | %.2f | %s |\n", sample_.scale, roundTrip,
                way, run.isWorkedOut ? "about " : "", run.seconds, run.seconds / floor.seconds,
                static_cast<unsigned long long>(run.calls),
                static_cast<double>(run.calls) / static_cast<double>(touched_.count()),
                mebibytes(run.bytes).c_str());
    std::fflush(stdout);
  }
  static std::string mebibytes(std::uint64_t bytes) {
    char text[32];
    std::snprintf(text, sizeof text, "%.2f", static_cast<double>(bytes) / (1 << 20));
    return text;
  }

  BenchFolder folder_;
  std::string store_ = folder_.file("store");
  SampleOptions sample_;
  TouchedExtents touched_;
};

}  // namespace

}  // namespace dg::bench

int main(int argc, char** argv) {
  std::vector<int> scales;
  for (const char* argument : std::span(argv, static_cast<std::size_t>(argc)).subspan(1))
    scales.push_back(std::atoi(argument));
  if (scales.empty()) scales = {1, 10, 100};
  try {
    for (const int scale : scales)
      dg::bench::LoadBench(scale).run();
  } catch (const std::exception& error) {
    std::cerr << "dg_load_bench: " << error.what() << '\n';
    return 1;
  }
}
