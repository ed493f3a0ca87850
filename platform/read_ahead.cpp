#include "platform/read_ahead.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <list>
#include <thread>
#include <unordered_set>
#include <utility>

#include "platform/fetch_pool.h"
#include "platform/kept_extents.h"
#include "platform/read_ahead_file.h"
#include "platform/share_line.h"
#include "platform/share_path.h"
#include "platform/system_file.h"

namespace dg {

namespace {

ReadAheadSettings& settings() {
  static ReadAheadSettings current;
  return current;
}

/// Files that were closed within a scope, and need not be opened again.
class ParkedFiles {
 public:
  std::shared_ptr<File> take(const std::string& path, FileAccess access) {
    const auto place = std::ranges::find_if(
        files_, [&](const Parked& file) { return file.path == path && file.access == access; });
    if (place == files_.end()) return nullptr;
    std::shared_ptr<File> file = std::move(place->file);
    files_.erase(place);
    reopened_.insert(path);
    return file;
  }
  /// Returns one that is to be closed, in its place.
  std::shared_ptr<File> park(const std::string& path, FileAccess access,
                             std::shared_ptr<File> file) {
    files_.push_back({path, access, std::move(file)});
    if (files_.size() <= kMost) return nullptr;
    // Thousands of documents are opened once each, some directories again and again.
    auto last = std::ranges::find_if(
        files_, [this](const Parked& each) { return !reopened_.contains(each.path); });
    if (last == files_.end()) last = files_.begin();
    std::shared_ptr<File> out = std::move(last->file);
    files_.erase(last);
    return out;
  }
  std::list<std::shared_ptr<File>> takeAll() {
    std::list<std::shared_ptr<File>> all;
    for (Parked& each : files_)
      all.push_back(std::move(each.file));
    files_.clear();
    return all;
  }

 private:
  struct Parked {
    std::string path;
    FileAccess access = FileAccess::kRead;
    std::shared_ptr<File> file;
  };
  static constexpr std::size_t kMost = 32;

  std::list<Parked> files_;  ///< the one used last behind
  std::unordered_set<std::string> reopened_;
};

/// What a scope has: kept bytes, files and the line.
class Load {
 public:
  explicit Load(std::uint64_t id) : id_(id) {}
  ~Load() { closeParked(); }
  Load(const Load&) = delete;
  Load& operator=(const Load&) = delete;

  /// Tells one scope's load from the next.
  std::uint64_t id() const { return id_; }
  ShareLine& line() { return *line_; }
  KeptExtents& kept() { return kept_; }

  void forgetAll() {
    kept_.forgetAll();
    pool_.forgetAll();
    closeParked();
  }

  /// Unless something is known of the file already.
  void expect(const std::string& path, FileAccess access, Expected when) {
    if (!kept_.knows(path)) pool_.expect(path, access, when);
  }
  FetchedRun takeRun(const std::string& path, std::int64_t begin) {
    return pool_.takeRun(path, begin);
  }
  /// A file that needs no opening: one that was closed before, or that a worker has opened.
  std::shared_ptr<File> takeFile(const std::string& path, FileAccess access) {
    if (std::shared_ptr<File> file = parked_.take(path, access)) return file;
    FetchedRun fetched = pool_.takeFile(path, access);
    if (fetched.file) kept_.keep(kept_.file(path), 0, fetched);
    return std::move(fetched.file);
  }
  /// Keeps a file that its user has closed for the next who opens it.
  void park(const std::string& path, FileAccess access, std::shared_ptr<File> file) {
    close(parked_.park(path, access, std::move(file)));
  }
  void close(std::shared_ptr<File> file) {
    if (file) pool_.close(std::move(file));
  }

 private:
  void closeParked() {
    for (std::shared_ptr<File>& file : parked_.takeAll())
      close(std::move(file));
  }

  std::uint64_t id_;
  std::shared_ptr<ShareLine> line_ =
      std::make_shared<ShareLine>(settings().near, settings().patience);
  FetchPool pool_{line_};
  ParkedFiles parked_;
  KeptExtents kept_;
};

/// That of the scope in force; empty when there is none.
std::unique_ptr<Load>& load() {
  static std::unique_ptr<Load> current;
  return current;
}

/// Whether the last load's share gave no answer: to close a file of it may take for ever.
bool wasSilent = false;

/// Whether the scope in force looks after what is asked of the system's files.
bool attends() {
  return load() != nullptr && systemFilesInPlace();
}

class ReadAheadFile final : public File, private ExtentSource {
 public:
  ReadAheadFile(std::shared_ptr<File> file, std::string path, FileAccess access)
      : file_(std::move(file)), path_(std::move(path)), access_(access) {}
  ~ReadAheadFile() override {
    // One that failed may do better when it is opened anew.
    if (attends()) {
      if (hasFailed_) {
        load()->close(std::move(file_));
      } else {
        load()->park(path_, access_, std::move(file_));
      }
    } else if (wasSilent && isOnShare_) {
      closeAside();
    }
  }

  std::size_t read(std::int64_t offset, char* buffer, std::size_t count) override {
    const bool isInRange =
        offset >= 0 &&
        std::cmp_less_equal(count, std::numeric_limits<std::int64_t>::max() - offset -
                                       std::int64_t{read_ahead::kLongestRun});
    hasFailed_ = true;  // unless it comes back
    const std::size_t done =
        load() && isInRange ? readKept(offset, buffer, count) : readDirectly(offset, buffer, count);
    hasFailed_ = false;
    return done;
  }

  void write(std::int64_t offset, std::string_view data) override {
    // Other paths may lead to the same file.
    forgetKeptBytes();
    file_->write(offset, data);
  }

  std::int64_t size() override {
    if (!isAttended()) return file_->size();
    return load()->line().call([file = file_] { return file->size(); },
                               ShareLine::Tells::kOnlyIfSlow);
  }

 private:
  bool isAttended() const { return isOnShare_ && attends(); }

  std::size_t readKept(std::int64_t offset, char* buffer, std::size_t count) {
    if (loadId_ != load()->id()) {
      kept_ = &load()->kept().file(path_);
      loadId_ = load()->id();
    }
    return load()->kept().read(*kept_, *this, offset, buffer, count);
  }

  std::size_t readDirectly(std::int64_t offset, char* buffer, std::size_t count) override {
    if (!isAttended()) return file_->read(offset, buffer, count);
    ShareLine& line = load()->line();
    if (!line.isFar()) return line.call([&] { return file_->read(offset, buffer, count); });
    const std::string bytes = line.call([file = file_, offset, count] {
      std::string read(count, '\0');
      read.resize(file->read(offset, read.data(), count));
      return read;
    });
    std::ranges::copy(bytes, buffer);
    return bytes.size();
  }

  FetchedRun takeRun(std::int64_t begin) override {
    if (!attends()) return {};
    FetchedRun fetched = load()->takeRun(path_, begin);
    load()->close(std::move(fetched.file));
    return fetched;
  }

  void closeAside() {
    try {
      std::thread([file = std::move(file_)]() mutable { file.reset(); }).detach();
    } catch (const std::system_error&) {  // NOLINT(bugprone-empty-catch): then here
    }
  }

  std::shared_ptr<File> file_;
  std::string path_;
  FileAccess access_;
  bool isOnShare_ = isSharePath(path_);
  bool hasFailed_ = false;    ///< its last read
  KeptFile* kept_ = nullptr;  ///< of the load with loadId_
  std::uint64_t loadId_ = 0;
};

/// A question about a path, or its opening, by the system's files.
template <class Ask>
auto attended(const std::string& path, Ask ask) {
  if (!attends() || !isSharePath(path)) return ask();
  ShareLine& line = load()->line();
  line.meet(path);
  return line.call(std::move(ask));
}

}  // namespace

ReadAheadScope::ReadAheadScope() : isOutermost_(settings().isEnabled && !load()) {
  static std::uint64_t lastId = 0;
  if (!isOutermost_) return;
  load() = std::make_unique<Load>(++lastId);
  keepPlaces(true);
}

ReadAheadScope::~ReadAheadScope() {
  if (!isOutermost_) return;
  wasSilent = load()->line().isSilent();
  keepPlaces(false);
  load().reset();
}

ReadAheadSettings setReadAhead(const ReadAheadSettings& newSettings) {
  return std::exchange(settings(), newSettings);
}

std::unique_ptr<File> openReadAhead(FileSystem& files, const std::string& path, FileAccess access) {
  if (attends()) {
    if (std::shared_ptr<File> file = load()->takeFile(path, access)) {
      return std::make_unique<ReadAheadFile>(std::move(file), path, access);
    }
  }
  std::shared_ptr<File> file = attended(
      path, [&files, path, access] { return std::shared_ptr<File>(files.open(path, access)); });
  return std::make_unique<ReadAheadFile>(std::move(file), path, access);
}

bool answerAhead(const std::string& path, const std::function<bool(const std::string&)>& ask) {
  if (attends()) {
    if (std::shared_ptr<File> file = load()->takeFile(path, FileAccess::kRead)) {
      load()->park(path, FileAccess::kRead, std::move(file));
      return true;
    }
  }
  try {
    return attended(path, [path, ask] { return ask(path); });
  } catch (const RunTimeError&) {
    return false;  // the line is silent
  }
}

bool canExpectFiles() {
  return attends() && load()->line().isFar();
}

void expectFile(const std::string& path, FileAccess access, Expected when) {
  if (canExpectFiles()) load()->expect(path, access, when);
}

void forgetKeptBytes() {
  if (load()) load()->forgetAll();
}

}  // namespace dg
