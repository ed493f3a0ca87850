#include "platform/kept_extents.h"

#include <algorithm>
#include <new>
#include <utility>

#include "platform/values/run_time_error.h"

namespace dg {

namespace {

using namespace read_ahead;

constexpr std::int64_t kExtent = kExtentSize;
constexpr std::size_t kLongestRunExtents = kLongestRun / kExtentSize;

}  // namespace

bool KeptExtents::knows(const std::string& path) const {
  const auto known = files_.find(path);
  return known != files_.end() && !known->second.runs.empty();
}

std::size_t KeptExtents::read(KeptFile& kept, ExtentSource& source, std::int64_t offset,
                              char* buffer, std::size_t count) {
  std::size_t done = 0;
  while (done < count) {
    const std::int64_t position = offset + static_cast<std::int64_t>(done);
    const std::int64_t extent = position / kExtent;

    const KeptRun* run = find(kept, extent);
    const bool isKnown = run != nullptr;
    if (!isKnown) run = fetch(kept, source, extent);
    const std::size_t there = run == nullptr ? 0 : run->lengthFrom(position);
    // The end that the file had when the run was fetched need not be its end now.
    if (run == nullptr || (isKnown && there == 0)) {
      return done + source.readDirectly(position, buffer + done, count - done);
    }
    const std::size_t wanted = std::min(count - done, there);
    std::copy_n(run->bytes.get() + (position - run->begin()), wanted, buffer + done);
    done += wanted;
    if (wanted == there && run->isCutShort()) break;
  }
  return done;
}

const KeptRun* KeptExtents::find(KeptFile& kept, std::int64_t extent) {
  const auto found = kept.runs.find(extent);
  if (found == kept.runs.end()) return nullptr;
  runs_.splice(runs_.begin(), runs_, found->second);
  return &*found->second;
}

/// Extents that the next read fetches: one, or twice those of the run that it goes on from, up to
/// the next one that is kept.
std::size_t KeptExtents::runLength(const KeptFile& kept, std::int64_t extent) {
  const auto before = kept.runs.find(extent - 1);
  if (before == kept.runs.end()) return 1;
  const std::size_t most = std::min(2 * before->second->extents, kLongestRunExtents);
  std::size_t length = 1;
  while (length < most && !kept.runs.contains(extent + static_cast<std::int64_t>(length)))
    ++length;
  return length;
}

const KeptRun* KeptExtents::fetch(KeptFile& kept, ExtentSource& source, std::int64_t extent) {
  if (kept.unreadable.contains(extent)) return nullptr;
  const std::int64_t begin =
      extent * kExtent / std::int64_t{kLongestRun} * std::int64_t{kLongestRun};
  if (FetchedRun fetched = source.takeRun(begin); fetched.bytes) {
    keep(kept, begin, fetched);
    if (const KeptRun* taken = find(kept, extent)) return taken;
  }

  KeptRun run;
  run.file = &kept;
  run.firstExtent = extent;
  run.extents = runLength(kept, extent);
  run.bytes = resized(nullptr, run.extents * kExtentSize);
  try {
    run.length = source.readDirectly(run.begin(), run.bytes.get(), run.extents * kExtentSize);
  } catch (const RunTimeError&) {
    kept.unreadable.insert(extent);
    return nullptr;
  }
  if (run.isCutShort()) run.bytes = resized(std::move(run.bytes), run.length);
  add(std::move(run));
  return &runs_.front();
}

void KeptExtents::add(KeptRun run) {
  KeptFile& kept = *run.file;
  makeRoom(run.length);
  runs_.push_front(std::move(run));
  const RunList::iterator added = runs_.begin();
  keptBytes_ += added->length;
  for (std::size_t i = 0; i < added->extents; ++i)
    kept.runs[added->firstExtent + static_cast<std::int64_t>(i)] = added;
}

/// Extents of which something is known already stay as they were first seen.
void KeptExtents::keep(KeptFile& kept, std::int64_t begin, FetchedRun& fetched) {
  const std::int64_t first = begin / kExtent;
  const std::size_t extents = fetched.capacity / kExtentSize;
  for (std::size_t i = 0; i < extents; ++i) {
    if (kept.runs.contains(first + static_cast<std::int64_t>(i))) return;
  }
  KeptRun run;
  run.file = &kept;
  run.firstExtent = first;
  run.extents = extents;
  run.length = fetched.length;
  run.bytes = std::move(fetched.bytes);
  add(std::move(run));
}

void KeptExtents::makeRoom(std::size_t size) {
  while (!runs_.empty() && keptBytes_ + size > kMostKept) {
    const KeptRun& oldest = runs_.back();
    for (std::size_t i = 0; i < oldest.extents; ++i)
      oldest.file->runs.erase(oldest.firstExtent + static_cast<std::int64_t>(i));
    keptBytes_ -= oldest.length;
    runs_.pop_back();
  }
}

void KeptExtents::forgetAll() {
  for (auto& [path, file] : files_)
    file = {};
  runs_.clear();
  keptBytes_ = 0;
}

}  // namespace dg
