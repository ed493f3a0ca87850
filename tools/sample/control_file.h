#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "tools/sample/random.h"

namespace dg::sample {

/// The suite's control file: 580 blocks of 512 bytes with the company's options, names and tables
/// of open documents.
class ControlFile {
 public:
  ControlFile();

  /// Block `number` for a RecordWriter, and back.
  std::string block(int number) const;
  void setBlock(int number, const std::string& bytes);

  static constexpr std::int32_t kHighestJob = 10'086;  ///< the last that the job table has room for

  /// Enters a shop job's first record, or a value below 1 for a job whose slot was freed, at the
  /// job's place in the job table. Raises 9 for a job number that has none.
  void setJob(std::int32_t job, std::int32_t record);
  /// Enters a saved invoice's record at a random place. Returns false when the table is full.
  bool addSavedInvoice(Random& random, std::int32_t record);

  const std::string& bytes() const { return bytes_; }

 private:
  std::string bytes_;
  std::vector<std::size_t> savedInvoiceSlots_;  // byte offsets of the slots not yet in use
};

}  // namespace dg::sample
