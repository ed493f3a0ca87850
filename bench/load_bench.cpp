// Whole loads of example stores, from the start of the program to the last view, beside the floor:
// opening, reading in large pieces and closing the same files once, one after the other. All of it
// comes from the system's page cache; the round trips to a share are simulated, at every call that
// reaches it.
//
// usage: dg_load_bench [SCALE...]      default: 1 10 100
//
// Writes a table in Markdown to standard output.

#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <iostream>
#include <span>
#include <sstream>
#include <stdexcept>
#include <string>
#include <unistd.h>
#include <vector>

#include "bench/bench_files.h"
#include "bench/watched_file_system.h"
#include "insight/open_items.h"
#include "platform/environment.h"
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

/// A share's answer in a good local network, in a large one, and over a line from outside.
constexpr std::array kRoundTrips = {microseconds(500), microseconds(2000), microseconds(20000)};
/// Repeated runs give the shortest time; one with simulated round trips is long enough by itself.
constexpr int kRepeats = 7;
/// Simulated waiting beyond this is worked out instead of waited for.
constexpr Seconds kLongestWait(30);

constexpr std::size_t kFloorPiece = std::size_t{1} << 20;

struct Measured {
  double seconds = 0;
  CallCounts calls;
  std::uint64_t bytes = 0;
  bool isWorkedOut = false;
};

/// The shortest of some runs of `run`.
template <class Run>
Measured shortest(int repeats, Run run) {
  Measured best = run();
  for (int i = 1; i < repeats; ++i) {
    const Measured next = run();
    if (next.seconds < best.seconds) best = next;
  }
  return best;
}

/// The surroundings of runs over one store.
class StoreSession {
 public:
  StoreSession(const std::string& store, Date asOf) : session_(options(store, asOf), console_) {}

  /// One load of the whole store.
  Measured load(microseconds roundTrip) {
    const SimulatedLine line(roundTrip);
    const ReadStatistics before = readStatistics();
    const auto begin = Clock::now();
    session_.load(viewCatalogue(), {});
    const Seconds seconds = Clock::now() - begin;
    const ReadStatistics after = readStatistics();
    if (session_.storeReachable() && session_.failures().empty()) {
      return {seconds.count(), line.counts(), after.bytes - before.bytes};
    }
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

/// Opens, reads and closes files one after the other with plain system calls.
Measured readThrough(const std::vector<std::string>& nativeFiles, microseconds roundTrip) {
  std::vector<char> piece(kFloorPiece);
  Measured run;
  const SimulatedLine line(roundTrip);
  const auto begin = Clock::now();
  for (const std::string& name : nativeFiles) {
    const int file = ::open(name.c_str(), O_RDONLY | O_CLOEXEC);
    noteFileCall(FileCall::kOpen);
    if (file < 0) throw std::runtime_error("cannot open " + name);
    ssize_t got = 0;
    do {
      got = ::read(file, piece.data(), piece.size());
      noteFileCall(FileCall::kRead);
      run.bytes += got > 0 ? static_cast<std::uint64_t>(got) : 0;
    } while (got == static_cast<ssize_t>(piece.size()));
    ::close(file);
    noteFileCall(FileCall::kClose);
  }
  run.seconds = Seconds(Clock::now() - begin).count();
  run.calls = line.counts();
  return run;
}

/// The example store of one scale, loaded in several ways.
class LoadBench {
 public:
  explicit LoadBench(int scale) {
    sample_.scale = scale;
    writeSampleStore(store_, sample_);
    setFileSystem(std::make_unique<WatchedFileSystem>(touched_));
    load(false, microseconds(0));
    setFileSystem(nullptr);
    const StoreSession place(store_, sample_.asOf);
    for (const auto& [path, extents] : touched_.byPath())
      nativeFiles_.push_back(nativePath(path).value());
  }
  ~LoadBench() { setFileSystem(nullptr); }
  LoadBench(const LoadBench&) = delete;
  LoadBench& operator=(const LoadBench&) = delete;

  void run() {
    const Measured floor = shortest(kRepeats, [this] { return readAll(microseconds(0)); });
    std::printf("\n%zu files, %s MiB; the load touches %llu extents of 64 KiB in them.\n\n",
                nativeFiles_.size(), mebibytes(floor.bytes).c_str(),
                static_cast<unsigned long long>(touched_.count()));
    std::puts(
        "| Scale | Round trip | | Seconds | Times the floor | Opens | Closes | Questions | Reads | "
        "Reads an extent | MiB read |");
    std::puts("|--:|--:|---|--:|--:|--:|--:|--:|--:|--:|--:|");
    row("none", "floor", floor, floor);
    const Measured direct = shortest(kRepeats, [this] { return load(false, microseconds(0)); });
    row("none", "without keeping", direct, floor);
    const Measured keeping = shortest(kRepeats, [this] { return load(true, microseconds(0)); });
    row("none", "with keeping", keeping, floor);
    const Measured told = shortest(kRepeats, [this] { return loadTelling(); });
    row("none", "and what needs attention", told, floor);

    for (const microseconds roundTrip : kRoundTrips) {
      const std::string name = std::to_string(roundTrip.count()) + " \u00b5s";
      const Measured farFloor = far(floor, roundTrip, [&] { return readAll(roundTrip); });
      row(name, "floor", farFloor, farFloor);
      row(name, "without keeping", far(direct, roundTrip, [&] { return load(false, roundTrip); }),
          farFloor);
      row(name, "with keeping", load(true, roundTrip), farFloor);
    }
  }

 private:
  Measured load(bool keeping, microseconds roundTrip) {
    const ReadAheadSettings former = setReadAhead({.isEnabled = keeping});
    const Measured run = StoreSession(store_, sample_.asOf).load(roundTrip);
    setReadAhead(former);
    return run;
  }
  /// As the desktop loads: the walks tell of the open work as well.
  Measured loadTelling() {
    OpenItems items;
    const ObservingScope observing(items);
    return load(true, microseconds(0));
  }
  Measured readAll(microseconds roundTrip) const { return readThrough(nativeFiles_, roundTrip); }

  /// The same with round trips: run, or worked out from the run without when it would take long.
  template <class Run>
  static Measured far(const Measured& near, microseconds roundTrip, Run run) {
    const double waiting = static_cast<double>(near.calls.sum()) * Seconds(roundTrip).count();
    if (waiting <= kLongestWait.count()) return run();
    return {near.seconds + waiting, near.calls, near.bytes, true};
  }

  void row(const std::string& roundTrip, const char* way, const Measured& run,
           const Measured& floor) const {
    std::printf("| %d | %s | %s | %s%.4f | %.2f |", sample_.scale, roundTrip.c_str(), way,
                run.isWorkedOut ? "about " : "", run.seconds, run.seconds / floor.seconds);
    for (const FileCall call :
         {FileCall::kOpen, FileCall::kClose, FileCall::kQuestion, FileCall::kRead}) {
      std::printf(" %llu |", static_cast<unsigned long long>(run.calls.of(call)));
    }
    std::printf(
        " %.2f | %s |\n",
        static_cast<double>(run.calls.of(FileCall::kRead)) / static_cast<double>(touched_.count()),
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
  std::vector<std::string> nativeFiles_;  ///< those that the load touches
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
