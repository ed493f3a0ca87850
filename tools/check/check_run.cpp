#include "tools/check/check_run.h"

#include "engine/open_file.h"
#include "platform/values/run_time_error.h"

namespace dg::check {

Place IndexContents::placeOf(const IndexEntry& entry) const {
  const std::int64_t block = (entry.offset - file->begin()) / kBlockSize;
  return file->atBlock(block, entry.offset - file->blockOffset(block));
}

const IndexContents* CheckRun::contents(std::string_view name) const {
  const auto found = indexes.find(name);
  return found == indexes.end() ? nullptr : &found->second;
}

const RecordUse* CheckRun::use(std::string_view name) const {
  const auto found = uses.find(name);
  return found == uses.end() ? nullptr : &found->second;
}

void CheckRun::step(const Place& place, const std::function<void()>& work) {
  if (progress) progress(place.file);
  try {
    work();
  } catch (const RunTimeError& failure) {
    findings.damage(kind::kUnreadable, place,
                    place.physical + " cannot be read: " + failure.description() + ".");
  }
}

}  // namespace dg::check
