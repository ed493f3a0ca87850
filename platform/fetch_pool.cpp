#include "platform/fetch_pool.h"

#include <algorithm>
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
#include "platform/system_file.h"
#include "platform/values/run_time_error.h"

namespace dg {

namespace {

enum class Stage { kWaiting, kBegun, kDone };

/// One file that is expected. Workers and the pool share it under the pool's mutex, but for what a
/// worker fetches while the stage is kBegun.
struct Task {
  std::string path;
  std::string native;
  FileAccess access = FileAccess::kRead;
  Stage stage = Stage::kWaiting;
  FetchedFile fetched;
};
using TaskPointer = std::shared_ptr<Task>;

/// Opens and reads; no file when anything fails: whoever asks meets the failure by itself.
FetchedFile fetch(const std::string& native, FileAccess access) {
  try {
    FetchedFile fetched;
    fetched.file = openAtOnce(native, access);
    if (!fetched.file) return {};
    const auto size = static_cast<std::size_t>(std::max<std::int64_t>(fetched.file->size(), 0));
    // Whole extents, and room for the read to meet the file's end.
    const std::size_t extents = std::min(size, read_ahead::kLongestRun - 1) / read_ahead::kExtentSize;
    fetched.capacity = (extents + 1) * read_ahead::kExtentSize;
    fetched.bytes = std::make_unique_for_overwrite<char[]>(fetched.capacity);
    fetched.length = fetched.file->read(0, fetched.bytes.get(), fetched.capacity);
    return fetched;
  } catch (const RunTimeError&) {
    return {};
  } catch (const std::bad_alloc&) {
    return {};
  }
}

}  // namespace

struct FetchPool::Shared {
  std::mutex mutex;
  std::condition_variable workCame;
  std::condition_variable taskDone;
  std::list<TaskPointer> tasks;  ///< the oldest in front
  std::vector<std::unique_ptr<File>> toClose;
  std::size_t bytesAhead = 0;  ///< of tasks that are done
  std::size_t workers = 0;
  std::size_t idle = 0;
  bool isOver = false;

  TaskPointer nextTask() {
    if (bytesAhead >= kMostBytesAhead) return nullptr;
    const auto next = std::ranges::find(tasks, Stage::kWaiting, &Task::stage);
    return next == tasks.end() ? nullptr : *next;
  }

  void remove(std::list<TaskPointer>::iterator place) {
    if ((*place)->stage == Stage::kDone) bytesAhead -= (*place)->fetched.capacity;
    tasks.erase(place);
  }

  void giveUp(std::list<TaskPointer>::iterator place) {
    const TaskPointer task = *place;
    remove(place);
    if (task->stage != Stage::kDone) return;
    if (task->fetched.file) toClose.push_back(std::move(task->fetched.file));
    task->fetched = {};
  }

  void giveUpAll() {
    while (!tasks.empty())
      giveUp(tasks.begin());
  }

  void work();
};

/// What a worker does until the pool's end.
void FetchPool::Shared::work() {
  std::unique_lock<std::mutex> lock(mutex);
  while (!isOver || !toClose.empty()) {
    if (!toClose.empty()) {
      std::unique_ptr<File> file = std::move(toClose.back());
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
    lock.unlock();
    FetchedFile fetched = fetch(task->native, task->access);
    lock.lock();
    if (std::ranges::find(tasks, task) == tasks.end()) {  // given up meanwhile
      if (fetched.file) toClose.push_back(std::move(fetched.file));
      continue;
    }
    bytesAhead += fetched.capacity;
    task->fetched = std::move(fetched);
    task->stage = Stage::kDone;
    taskDone.notify_all();
  }
}

FetchPool::FetchPool() : shared_(std::make_shared<Shared>()) {}

FetchPool::~FetchPool() {
  {
    const std::lock_guard<std::mutex> lock(shared_->mutex);
    shared_->isOver = true;
    shared_->giveUpAll();
  }
  shared_->workCame.notify_all();
}

void FetchPool::startWorker() {
  try {
    std::thread([shared = shared_] { shared->work(); }).detach();
    ++shared_->workers;
  } catch (const std::system_error&) {  // NOLINT(bugprone-empty-catch): the others, or none, do it
  }
}

void FetchPool::expect(const std::string& path, FileAccess access) {
  std::optional<std::string> native = placeAsWritten(path);
  if (!native) return;
  {
    const std::lock_guard<std::mutex> lock(shared_->mutex);
    if (std::ranges::find(shared_->tasks, path, &Task::path) != shared_->tasks.end()) return;
    auto task = std::make_shared<Task>();
    task->path = path;
    task->native = std::move(*native);
    task->access = access;
    if (shared_->tasks.size() >= kMostFilesAhead) shared_->giveUp(shared_->tasks.begin());
    shared_->tasks.push_back(std::move(task));
    if (shared_->idle == 0 && shared_->workers < kWorkers) startWorker();
  }
  shared_->workCame.notify_one();
}

FetchedFile FetchPool::take(const std::string& path, FileAccess access) {
  std::unique_lock<std::mutex> lock(shared_->mutex);
  const auto place = std::ranges::find_if(shared_->tasks, [&](const TaskPointer& task) {
    return task->path == path && task->access == access;
  });
  if (place == shared_->tasks.end()) return {};
  const TaskPointer task = *place;
  shared_->taskDone.wait(lock, [&] { return task->stage != Stage::kBegun; });
  shared_->remove(place);
  lock.unlock();
  shared_->workCame.notify_one();
  return std::move(task->fetched);
}

void FetchPool::close(std::unique_ptr<File> file) {
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
