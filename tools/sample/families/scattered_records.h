#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "tools/sample/random.h"
#include "tools/sample/record_file.h"

namespace dg::sample {

/// Hands out records of a file out of order, as a file gives them whose records were freed and
/// used again for years: the records of a chain lie apart, and its next one may lie before it.
/// Records that are left at the end are free.
class ScatteredRecords {
 public:
  ScatteredRecords(RecordFile& file, Random& random) : file_(file), random_(random) {}
  ~ScatteredRecords() {
    for (const std::int32_t record : pool_)
      file_.free(record);
  }
  ScatteredRecords(const ScatteredRecords&) = delete;
  ScatteredRecords& operator=(const ScatteredRecords&) = delete;

  /// A record to be filled by RecordFile::replace.
  std::int32_t take() {
    while (pool_.size() < kPoolSize)
      pool_.push_back(file_.add({}));
    const auto chosen = static_cast<std::size_t>(random_.below(kPoolSize));
    const std::int32_t record = pool_[chosen];
    pool_[chosen] = pool_.back();
    pool_.pop_back();
    return record;
  }
  RecordFile& file() { return file_; }

 private:
  static constexpr std::size_t kPoolSize = 24;

  RecordFile& file_;
  Random& random_;
  std::vector<std::int32_t> pool_;
};

}  // namespace dg::sample
