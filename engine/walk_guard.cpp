#include "engine/walk_guard.h"

#include <algorithm>

#include "platform/file.h"
#include "platform/values/run_time_error.h"

namespace dg {

namespace {

/// Longer walks are worth the question how long the file is.
constexpr std::int64_t kShortWalk = 512;

/// Records or blocks by the capacity, the one at 0 included.
std::int64_t capacity(const cLogicalFile& file) {
  return std::max<std::int64_t>(std::int64_t{file.LastRecord} + 1, 1);
}

/// Bytes from one record to the next; an index has blocks, whatever its directory says.
std::int64_t recordWidth(const cLogicalFile& file) {
  return file.FileType == "I" ? kBlockSize : std::max(file.RecordLength, 1);
}

/// Records or blocks that the physical file has room for now.
std::int64_t recordsThatFit(const cLogicalFile& file) {
  if (!file.OpenFile) throw RunTimeError(kObjectNotSet);
  return fileLength(file.OpenFile->vbFileNumber) / recordWidth(file) + 1;
}

}  // namespace

WalkGuard::WalkGuard(const cLogicalFile& file, std::int64_t stepsPerRecord)
    : file_(&file),
      stepsPerRecord_(stepsPerRecord),
      limit_(std::min(capacity(file) * stepsPerRecord, kShortWalk)) {}

void WalkGuard::measure() {
  if (!measured_) {
    measured_ = true;
    limit_ = std::min(capacity(*file_), recordsThatFit(*file_)) * stepsPerRecord_;
  }
  if (taken_ > limit_) throw RunTimeError(kOverflow);
}

void WalkGuard::raiseCircle() {
  throw RunTimeError(kOverflow);
}

}  // namespace dg
