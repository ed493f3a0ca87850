#include "platform/read_ahead.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <list>
#include <new>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "platform/fetch_pool.h"
#include "platform/read_ahead_file.h"
#include "platform/system_file.h"
#include "platform/values/run_time_error.h"

namespace dg {

namespace {

using namespace read_ahead;

constexpr std::int64_t kExtent = kExtentSize;
constexpr std::size_t kLongestRunExtents = kLongestRun / kExtentSize;

class KeptFile;

struct Free {
  void operator()(char* bytes) const { std::free(bytes); }
};
using Bytes = std::unique_ptr<char, Free>;

/// Bytes from the C heap, which gives back the end of a block without moving the rest: a run's
/// length is known only when it has been read, and stores have thousands of files that are far
/// shorter than an extent.
Bytes resized(Bytes bytes, std::size_t size) {
  char* const moved = static_cast<char*>(std::realloc(bytes.get(), std::max<std::size_t>(size, 1)));
  if (moved == nullptr) throw std::bad_alloc();
  static_cast<void>(bytes.release());
  return Bytes(moved);
}

/// Extents that one read fetched, one behind the other.
struct Run {
  KeptFile* file = nullptr;
  std::int64_t firstExtent = 0;
  std::size_t extents = 0;
  Bytes bytes;
  std::size_t length = 0;  ///< of bytes: less than the extents' when the file ends there

  std::int64_t begin() const { return firstExtent * kExtent; }
  /// Bytes there are from a position within the extents on.
  std::size_t lengthFrom(std::int64_t position) const {
    return length - std::min(length, static_cast<std::size_t>(position - begin()));
  }
  bool isCutShort() const { return length < extents * kExtentSize; }
};

/// The one used last in front.
using RunList = std::list<Run>;

/// What is known of one path.
class KeptFile {
 public:
  const std::string* path = nullptr;                         ///< the keeper's own
  bool isReopened = false;                                   ///< after somebody had closed it
  std::unordered_map<std::int64_t, RunList::iterator> runs;  ///< by the number of each extent
  std::unordered_set<std::int64_t> unreadable;               ///< extents that are read as asked
};

/// All that a scope keeps.
class Keeper {
 public:
  explicit Keeper(std::uint64_t id) : id_(id) {}
  ~Keeper() {
    for (Parked& file : parked_)
      pool_.close(std::move(file.file));
  }
  Keeper(const Keeper&) = delete;
  Keeper& operator=(const Keeper&) = delete;

  /// Tells one scope's keeper from the next.
  std::uint64_t id() const { return id_; }
  KeptFile& keptFile(const std::string& path) {
    const auto place = files_.try_emplace(path).first;
    place->second.path = &place->first;
    return place->second;
  }

  std::size_t read(KeptFile& kept, File& file, std::int64_t offset, char* buffer,
                   std::size_t count);
  void forgetAll();

  /// Unless something is known of the file already.
  void expect(const std::string& path, FileAccess access, Expected when);
  /// A file that needs no opening: one that was closed before, or that a worker has opened.
  std::shared_ptr<File> takeFile(const std::string& path, FileAccess access);
  /// Keeps a file that its user has closed for the next who opens it.
  void park(const std::string& path, FileAccess access, std::shared_ptr<File> file);
  /// Whether takeFile has it.
  bool isOpen(const std::string& path, FileAccess access);

 private:
  struct Parked {
    std::string path;
    FileAccess access = FileAccess::kRead;
    std::shared_ptr<File> file;
  };
  static constexpr std::size_t kMostParked = 32;

  void add(Run run);
  const Run* find(KeptFile& kept, std::int64_t extent);
  const Run* fetch(KeptFile& kept, File& file, std::int64_t extent);
  bool takeRun(KeptFile& kept, std::int64_t extent);
  void keep(KeptFile& kept, std::int64_t begin, const FetchedRun& fetched);
  static std::size_t runLength(const KeptFile& kept, std::int64_t extent);
  void makeRoom(std::size_t size);

  std::uint64_t id_;
  FetchPool pool_;
  std::list<Parked> parked_;  ///< the one used last behind
  std::unordered_map<std::string, KeptFile> files_;
  RunList runs_;
  std::size_t keptBytes_ = 0;
};

std::size_t Keeper::read(KeptFile& kept, File& file, std::int64_t offset, char* buffer,
                         std::size_t count) {
  std::size_t done = 0;
  while (done < count) {
    const std::int64_t position = offset + static_cast<std::int64_t>(done);
    const std::int64_t extent = position / kExtent;

    const Run* run = find(kept, extent);
    const bool isKnown = run != nullptr;
    if (!isKnown) run = fetch(kept, file, extent);
    const std::size_t there = run == nullptr ? 0 : run->lengthFrom(position);
    // The end that the file had when the run was fetched need not be its end now.
    if (run == nullptr || (isKnown && there == 0)) {
      return done + file.read(position, buffer + done, count - done);
    }
    const std::size_t wanted = std::min(count - done, there);
    std::copy_n(run->bytes.get() + (position - run->begin()), wanted, buffer + done);
    done += wanted;
    if (wanted == there && run->isCutShort()) break;
  }
  return done;
}

const Run* Keeper::find(KeptFile& kept, std::int64_t extent) {
  const auto found = kept.runs.find(extent);
  if (found == kept.runs.end()) return nullptr;
  runs_.splice(runs_.begin(), runs_, found->second);
  return &*found->second;
}

/// Extents that the next read fetches: one, or twice those of the run that it goes on from, up to
/// the next one that is kept.
std::size_t Keeper::runLength(const KeptFile& kept, std::int64_t extent) {
  const auto before = kept.runs.find(extent - 1);
  if (before == kept.runs.end()) return 1;
  const std::size_t most = std::min(2 * before->second->extents, kLongestRunExtents);
  std::size_t length = 1;
  while (length < most && !kept.runs.contains(extent + static_cast<std::int64_t>(length)))
    ++length;
  return length;
}

const Run* Keeper::fetch(KeptFile& kept, File& file, std::int64_t extent) {
  if (kept.unreadable.contains(extent)) return nullptr;
  if (takeRun(kept, extent)) {
    if (const Run* taken = find(kept, extent)) return taken;
  }

  Run run;
  run.file = &kept;
  run.firstExtent = extent;
  run.extents = runLength(kept, extent);
  run.bytes = resized(nullptr, run.extents * kExtentSize);
  try {
    run.length = file.read(run.begin(), run.bytes.get(), run.extents * kExtentSize);
  } catch (const RunTimeError&) {
    kept.unreadable.insert(extent);
    return nullptr;
  }
  if (run.isCutShort()) run.bytes = resized(std::move(run.bytes), run.length);
  add(std::move(run));
  return &runs_.front();
}

/// Keeps what a worker has of the run that an extent lies in. False when there is nothing.
bool Keeper::takeRun(KeptFile& kept, std::int64_t extent) {
  const std::int64_t begin =
      extent * kExtent / std::int64_t{kLongestRun} * std::int64_t{kLongestRun};
  FetchedRun fetched = pool_.takeRun(*kept.path, begin);
  if (!fetched.file) return false;
  keep(kept, begin, fetched);
  pool_.close(std::move(fetched.file));
  return true;
}

void Keeper::add(Run run) {
  KeptFile& kept = *run.file;
  makeRoom(run.length);
  runs_.push_front(std::move(run));
  const RunList::iterator added = runs_.begin();
  keptBytes_ += added->length;
  for (std::size_t i = 0; i < added->extents; ++i)
    kept.runs[added->firstExtent + static_cast<std::int64_t>(i)] = added;
}

/// Extents of which something is known already stay as they were first seen.
void Keeper::keep(KeptFile& kept, std::int64_t begin, const FetchedRun& fetched) {
  const std::int64_t first = begin / kExtent;
  const std::size_t extents = fetched.capacity / kExtentSize;
  for (std::size_t i = 0; i < extents; ++i) {
    if (kept.runs.contains(first + static_cast<std::int64_t>(i))) return;
  }
  Run run;
  run.file = &kept;
  run.firstExtent = first;
  run.extents = extents;
  run.length = fetched.length;
  run.bytes = resized(nullptr, run.length);
  std::copy_n(fetched.bytes.get(), run.length, run.bytes.get());
  add(std::move(run));
}

void Keeper::expect(const std::string& path, FileAccess access, Expected when) {
  const auto known = files_.find(path);
  if (known == files_.end() || known->second.runs.empty()) pool_.expect(path, access, when);
}

std::shared_ptr<File> Keeper::takeFile(const std::string& path, FileAccess access) {
  const auto parked = std::ranges::find_if(
      parked_, [&](const Parked& file) { return file.path == path && file.access == access; });
  if (parked != parked_.end()) {
    std::shared_ptr<File> file = std::move(parked->file);
    parked_.erase(parked);
    keptFile(path).isReopened = true;
    return file;
  }
  FetchedRun fetched = pool_.takeFile(path, access);
  if (fetched.file) keep(keptFile(path), 0, fetched);
  return std::move(fetched.file);
}

void Keeper::park(const std::string& path, FileAccess access, std::shared_ptr<File> file) {
  parked_.push_back({path, access, std::move(file)});
  if (parked_.size() <= kMostParked) return;
  // Thousands of documents are opened once each, some directories again and again.
  const auto isUsedOnce = [&](const Parked& each) { return !keptFile(each.path).isReopened; };
  auto last = std::ranges::find_if(parked_, isUsedOnce);
  if (last == parked_.end()) last = parked_.begin();
  pool_.close(std::move(last->file));
  parked_.erase(last);
}

bool Keeper::isOpen(const std::string& path, FileAccess access) {
  std::shared_ptr<File> file = takeFile(path, access);
  if (!file) return false;
  park(path, access, std::move(file));
  return true;
}

void Keeper::makeRoom(std::size_t size) {
  while (!runs_.empty() && keptBytes_ + size > kMostKept) {
    const Run& oldest = runs_.back();
    for (std::size_t i = 0; i < oldest.extents; ++i)
      oldest.file->runs.erase(oldest.firstExtent + static_cast<std::int64_t>(i));
    keptBytes_ -= oldest.length;
    runs_.pop_back();
  }
}

void Keeper::forgetAll() {
  for (auto& [path, file] : files_) {
    file.runs.clear();
    file.unreadable.clear();
  }
  pool_.forgetAll();
  for (Parked& file : parked_)
    pool_.close(std::move(file.file));
  parked_.clear();
  runs_.clear();
  keptBytes_ = 0;
}

/// The keeper of the scope in force; empty when there is none.
std::unique_ptr<Keeper>& keeper() {
  static std::unique_ptr<Keeper> current;
  return current;
}

bool enabled = true;

class ReadAheadFile final : public File {
 public:
  ReadAheadFile(std::shared_ptr<File> file, std::string path, FileAccess access)
      : file_(std::move(file)), path_(std::move(path)), access_(access) {}
  ~ReadAheadFile() override {
    // One that failed may do better when it is opened anew.
    if (canExpectFiles() && !hasFailed_) keeper()->park(path_, access_, std::move(file_));
  }

  std::size_t read(std::int64_t offset, char* buffer, std::size_t count) override {
    Keeper* const current = keeper().get();
    const bool isInRange =
        offset >= 0 && std::cmp_less_equal(count, std::numeric_limits<std::int64_t>::max() -
                                                      offset - std::int64_t{kLongestRun});
    hasFailed_ = true;  // unless it comes back
    const std::size_t done = current == nullptr || !isInRange
                                 ? file_->read(offset, buffer, count)
                                 : readKept(*current, offset, buffer, count);
    hasFailed_ = false;
    return done;
  }

  void write(std::int64_t offset, std::string_view data) override {
    // Other paths may lead to the same file.
    forgetKeptBytes();
    file_->write(offset, data);
  }

  std::int64_t size() override { return file_->size(); }

 private:
  std::size_t readKept(Keeper& current, std::int64_t offset, char* buffer, std::size_t count) {
    if (keeperId_ != current.id()) {
      kept_ = &current.keptFile(path_);
      keeperId_ = current.id();
    }
    return current.read(*kept_, *file_, offset, buffer, count);
  }

  std::shared_ptr<File> file_;
  std::string path_;
  FileAccess access_;
  bool hasFailed_ = false;    ///< its last read
  KeptFile* kept_ = nullptr;  ///< of the keeper with keeperId_
  std::uint64_t keeperId_ = 0;
};

}  // namespace

ReadAheadScope::ReadAheadScope() : isOutermost_(enabled && !keeper()) {
  static std::uint64_t lastId = 0;
  if (!isOutermost_) return;
  keeper() = std::make_unique<Keeper>(++lastId);
  keepPlaces(true);
}

ReadAheadScope::~ReadAheadScope() {
  if (!isOutermost_) return;
  keepPlaces(false);
  keeper().reset();
}

bool setReadAheadEnabled(bool newSetting) {
  return std::exchange(enabled, newSetting);
}

std::unique_ptr<File> readAheadFile(std::unique_ptr<File> file, std::string path,
                                    FileAccess access) {
  return std::make_unique<ReadAheadFile>(std::move(file), std::move(path), access);
}

std::unique_ptr<File> takeExpectedFile(const std::string& path, FileAccess access) {
  if (!canExpectFiles()) return nullptr;
  std::shared_ptr<File> file = keeper()->takeFile(path, access);
  if (!file) return nullptr;
  return std::make_unique<ReadAheadFile>(std::move(file), path, access);
}

bool isOpenAlready(const std::string& path) {
  return canExpectFiles() && keeper()->isOpen(path, FileAccess::kRead);
}

bool canExpectFiles() {
  return keeper() != nullptr && systemFilesInPlace();
}

void expectFile(const std::string& path, FileAccess access, Expected when) {
  if (canExpectFiles()) keeper()->expect(path, access, when);
}

void forgetKeptBytes() {
  if (keeper()) keeper()->forgetAll();
}

}  // namespace dg
