#include "platform/fetch_pool.h"

#include <algorithm>
#include <array>
#include <condition_variable>
#include <list>
#include <mutex>
#include <new>
#include <optional>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

#include "platform/read_ahead.h"
#include "platform/share_line.h"
#include "platform/system_file.h"
#include "platform/values/run_time_error.h"

namespace dg {

namespace {

using read_ahead::kExtentSize;
using read_ahead::kLongestRun;

enum class Stage { kWaiting, kBegun, kDone };

/// One run that is expected. Workers and the pool share it under the pool's mutex, but for what a
/// worker reads while the stage is kBegun.
struct Task {
  std::string path;
  std::string native;
  FileAccess access = FileAccess::kRead;
  Expected when = Expected::kSoon;
  std::int64_t begin = 0;
  std::shared_ptr<File> file;  ///< none: it has to be opened
  Stage stage = Stage::kWaiting;
  std::size_t bytesAhead = 0;  ///< that it stands for in the bound
  FetchedRun fetched;
};
using TaskPointer = std::shared_ptr<Task>;
using Tasks = std::list<TaskPointer>;

/// Opens, if that is still to be done, and reads; nothing when anything fails: whoever asks meets
/// the failure by itself. `size` becomes the file's.
FetchedRun fetch(const Task& task, ShareLine& line, std::int64_t& size) {
  try {
    FetchedRun fetched;
    fetched.file = task.file;
    if (!fetched.file) {
      const ShareLine::Timed timed(line);
      fetched.file = openAtOnce(task.native, task.access);
    }
    if (!fetched.file) return {};
    size = std::max<std::int64_t>(fetched.file->size(), 0);
    const auto left = static_cast<std::size_t>(std::max<std::int64_t>(size - task.begin, 0));
    // Whole extents, and where it can be room for the read to meet the file's end.
    fetched.capacity = (std::min(left, kLongestRun - 1) / kExtentSize + 1) * kExtentSize;
    fetched.bytes = resized(nullptr, fetched.capacity);
    fetched.length = fetched.file->read(task.begin, fetched.bytes.get(), fetched.capacity);
    if (fetched.length < fetched.capacity) {
      fetched.bytes = resized(std::move(fetched.bytes), fetched.length);
    }
    return fetched;
  } catch (const RunTimeError&) {
    return {};
  } catch (const std::bad_alloc&) {
    return {};
  }
}

}  // namespace

struct FetchPool::Shared {
  explicit Shared(std::shared_ptr<ShareLine> itsLine) : line(std::move(itsLine)) {}

  std::shared_ptr<ShareLine> line;
  std::mutex mutex;
  std::condition_variable workCame;
  std::condition_variable taskDone;
  Tasks tasks;  ///< the oldest in front
  std::vector<std::shared_ptr<File>> toClose;
  std::array<std::size_t, 2> bytesAhead = {};  ///< by Expected
  std::size_t filesSoon = 0;                   ///< tasks that are expected soon
  std::size_t workers = 0;
  std::size_t idle = 0;
  bool isOver = false;

  TaskPointer nextTask() {
    TaskPointer later;
    for (const TaskPointer& task : tasks) {
      if (task->stage != Stage::kWaiting) continue;
      if (task->when == Expected::kSoon && hasRoom(Expected::kSoon)) return task;
      if (task->when == Expected::kLater && !later && hasRoom(Expected::kLater)) later = task;
    }
    return later;
  }

  std::size_t& ahead(Expected when) { return bytesAhead[static_cast<std::size_t>(when)]; }
  bool hasRoom(Expected when) { return ahead(when) + kLongestRun <= kMostBytesAhead; }
  /// A task that begins stands for all that it may bring, one that is done for what it has.
  void count(Task& task, std::size_t bytes) {
    ahead(task.when) += bytes - task.bytesAhead;
    task.bytesAhead = bytes;
  }

  Tasks::iterator find(const std::string& path, std::int64_t begin) {
    return std::ranges::find_if(
        tasks, [&](const TaskPointer& task) { return task->begin == begin && task->path == path; });
  }

  void add(TaskPointer task) {
    if (task->when == Expected::kSoon) ++filesSoon;
    tasks.push_back(std::move(task));
  }

  void remove(Tasks::iterator place) {
    Task& task = **place;
    count(task, 0);
    if (task.when == Expected::kSoon) --filesSoon;
    tasks.erase(place);
  }

  void giveUp(Tasks::iterator place) {
    const TaskPointer task = *place;
    remove(place);
    if (task->stage == Stage::kBegun) return;  // the worker finds out by itself
    if (task->file) toClose.push_back(std::move(task->file));
    if (task->fetched.file) toClose.push_back(std::move(task->fetched.file));
    task->fetched = {};
  }

  void giveUpAll() {
    while (!tasks.empty())
      giveUp(tasks.begin());
  }

  /// The runs behind a first one.
  void addRuns(const Task& first, const std::shared_ptr<File>& file, std::int64_t size) {
    for (auto begin = std::int64_t{kLongestRun}; begin < size; begin += std::int64_t{kLongestRun}) {
      auto task = std::make_shared<Task>();
      task->path = first.path;
      task->access = first.access;
      task->when = Expected::kLater;
      task->begin = begin;
      task->file = file;
      add(std::move(task));
    }
  }

  FetchedRun handOver(Tasks::iterator place, std::unique_lock<std::mutex>& lock) {
    const TaskPointer task = *place;
    if (!line->wait(taskDone, lock, [&] { return task->stage != Stage::kBegun; })) return {};
    // While it waited the list may have changed, but nobody else takes.
    remove(std::ranges::find(tasks, task));
    if (task->file && !task->fetched.file) toClose.push_back(std::move(task->file));
    workCame.notify_one();
    return std::move(task->fetched);
  }

  void work();
};

/// What a worker does until the pool's end.
void FetchPool::Shared::work() {
  std::unique_lock<std::mutex> lock(mutex);
  while (!isOver || !toClose.empty()) {
    if (!toClose.empty()) {
      std::shared_ptr<File> file = std::move(toClose.back());
      toClose.pop_back();
      lock.unlock();
      file.reset();
      lock.lock();
      continue;
    }
    const TaskPointer task = nextTask();
    if (!task) {
      ++idle;
      workCame.wait(lock);
      --idle;
      continue;
    }
    task->stage = Stage::kBegun;
    count(*task, kLongestRun);
    lock.unlock();
    std::int64_t size = 0;
    FetchedRun fetched = fetch(*task, *line, size);
    lock.lock();
    if (std::ranges::find(tasks, task) == tasks.end()) {  // given up meanwhile
      if (fetched.file) toClose.push_back(std::move(fetched.file));
      if (task->file) toClose.push_back(std::move(task->file));
      continue;
    }
    if (task->begin == 0 && fetched.file && size > std::int64_t{kLongestRun}) {
      addRuns(*task, fetched.file, size);
      workCame.notify_all();
    }
    count(*task, fetched.length);
    task->fetched = std::move(fetched);
    task->stage = Stage::kDone;
    taskDone.notify_all();
  }
}

FetchPool::FetchPool(std::shared_ptr<ShareLine> line)
    : shared_(std::make_shared<Shared>(std::move(line))) {}

FetchPool::~FetchPool() {
  {
    const std::lock_guard<std::mutex> lock(shared_->mutex);
    shared_->isOver = true;
    shared_->giveUpAll();
  }
  shared_->workCame.notify_all();
}

/// As many as find something to do, up to the bound.
void FetchPool::startWorkers() {
  const auto waiting =
      static_cast<std::size_t>(std::ranges::count(shared_->tasks, Stage::kWaiting, &Task::stage));
  const std::size_t busy = shared_->workers - shared_->idle;
  try {
    while (shared_->workers < std::min(kWorkers, busy + waiting)) {
      std::thread([shared = shared_] { shared->work(); }).detach();
      ++shared_->workers;
    }
  } catch (const std::system_error&) {  // NOLINT(bugprone-empty-catch): the others, or none, do it
  }
}

void FetchPool::expect(const std::string& path, FileAccess access, Expected when) {
  std::optional<std::string> native;
  try {
    shared_->line->meet(path);
    native =
        shared_->line->call([path] { return placeAsWritten(path); }, ShareLine::Tells::kOnlyIfSlow);
  } catch (const RunTimeError&) {
    return;  // the line is silent
  }
  if (!native) return;
  {
    const std::lock_guard<std::mutex> lock(shared_->mutex);
    if (shared_->find(path, 0) != shared_->tasks.end()) return;
    if (when == Expected::kSoon && shared_->filesSoon >= kMostFilesSoon) {
      shared_->giveUp(std::ranges::find(shared_->tasks, Expected::kSoon, &Task::when));
    }
    auto task = std::make_shared<Task>();
    task->path = path;
    task->native = std::move(*native);
    task->access = access;
    task->when = when;
    shared_->add(std::move(task));
    startWorkers();
  }
  shared_->workCame.notify_one();
}

FetchedRun FetchPool::takeFile(const std::string& path, FileAccess access) {
  std::unique_lock<std::mutex> lock(shared_->mutex);
  const auto place = shared_->find(path, 0);
  if (place == shared_->tasks.end() || (*place)->access != access) return {};
  return shared_->handOver(place, lock);
}

FetchedRun FetchPool::takeRun(const std::string& path, std::int64_t begin) {
  std::unique_lock<std::mutex> lock(shared_->mutex);
  const auto place = shared_->find(path, begin);
  if (place == shared_->tasks.end()) return {};
  return shared_->handOver(place, lock);
}

void FetchPool::close(std::shared_ptr<File> file) {
  if (!shared_->line->isFar()) return;  // and is closed here
  {
    const std::lock_guard<std::mutex> lock(shared_->mutex);
    if (shared_->workers > 0) shared_->toClose.push_back(std::move(file));
  }
  shared_->workCame.notify_one();
}

void FetchPool::forgetAll() {
  const std::lock_guard<std::mutex> lock(shared_->mutex);
  shared_->giveUpAll();
  shared_->workCame.notify_all();
}

}  // namespace dg
