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

  /// Enters a shop job's first record, or a value below 1 for a slot that was freed, at a random
  /// place of the job table. Returns false when the table is full.
  bool addJob(Random& random, std::int32_t record) { return fillSlot(random, jobSlots_, record); }
  /// The same for a saved invoice.
  bool addSavedInvoice(Random& random, std::int32_t record) {
    return fillSlot(random, savedInvoiceSlots_, record);
  }

  const std::string& bytes() const { return bytes_; }

 private:
  bool fillSlot(Random& random, std::vector<std::size_t>& slots, std::int32_t record);

  std::string bytes_;
  std::vector<std::size_t> jobSlots_;           // byte offsets of the slots not yet in use
  std::vector<std::size_t> savedInvoiceSlots_;  // the same
};

}  // namespace dg::sample
