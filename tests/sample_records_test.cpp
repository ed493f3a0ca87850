#include <gtest/gtest.h>
#include <string>

#include "engine/codec.h"
#include "platform/values/run_time_error.h"
#include "tests/support/error_number.h"
#include "tools/sample/control_file.h"
#include "tools/sample/random.h"
#include "tools/sample/record_file.h"
#include "tools/sample/record_writer.h"

namespace dg::sample {
namespace {

TEST(SampleRandom, IsTheSameOnEveryMachine) {
  Random random(1, "lines");
  EXPECT_EQ(random.next(), 0x86e04e6469244f64U);
  EXPECT_EQ(random.between(-5, 5), -3);
  EXPECT_EQ(random.below(1'000'000), 666834U);
}

TEST(SampleRecordWriter, RefusesWhatDoesNotFit) {
  RecordWriter record(4);
  EXPECT_EQ(errorNumber([&] { record.integer(1, 'B', 256); }), kOverflow);
  EXPECT_EQ(errorNumber([&] { record.integer(1, 'C', -1); }), kOverflow);
  EXPECT_EQ(errorNumber([&] { record.integer(1, 'K', 8388608); }), kOverflow);
  EXPECT_EQ(errorNumber([&] { record.integer(2, 'L', 0); }), 31);
  EXPECT_EQ(errorNumber([&] { record.raw(4, 2, "A"); }), 31);
  EXPECT_EQ(errorNumber([&] { record.packed(0, 2, "A"); }), 31);
  EXPECT_EQ(record.bytes(), std::string(4, '\0'));
}

TEST(SampleControlFile, HasSlotsForAllJobsAndTheSavedInvoicesOfItsBlocks) {
  Random random(3, "slots");
  ControlFile file;
  file.setJob(ControlFile::kHighestJob, 1);
  for (const std::int32_t job : {0, -1, ControlFile::kHighestJob + 1})
    EXPECT_EQ(errorNumber([&] { file.setJob(job, 1); }), kSubscriptOutOfRange);
  std::int32_t count = 0;
  while (file.addSavedInvoice(random, count + 1))
    ++count;
  EXPECT_EQ(count, 25 * 4 * 31);
  for (int block = 301; block <= 325; ++block) {
    const std::string bytes = file.block(block);
    for (std::int32_t slot = 0; slot < 128; ++slot) {
      EXPECT_EQ(Unpack('L', bytes, slot * 4 + 1) == 0, slot % 32 == 0)
          << "a group begins with four bytes of its own";
    }
  }
}

}  // namespace
}  // namespace dg::sample
