#include <algorithm>
#include <gtest/gtest.h>
#include <set>
#include <string>
#include <vector>

#include "engine/codec.h"
#include "engine/state.h"
#include "platform/run_time_error.h"
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

TEST(SampleRecordWriter, WritesWhatTheCodecReads) {
  const Date day = *Date::fromCalendar(1999, 1, 5);
  const std::string record = RecordWriter(40)
                                 .integer(1, 'J', -2)
                                 .integer(3, 'L', -1)
                                 .raw(7, 4, "AB")
                                 .packed(11, 4, "A-B")
                                 .packed(15, 4, "A-B", " ,-.")
                                 .date(19, 'C', day)
                                 .date(21, 'D', day)
                                 .date(24, 'R', day)
                                 .date(27, 'J', kEmptyDate)
                                 .bit(29, 'C', 8)
                                 .bit(29, 'C', 0)
                                 .bytes();
  EXPECT_EQ(Unpack('J', record, 1), -2);
  EXPECT_EQ(Unpack('L', record, 3), -1);
  EXPECT_EQ(record.substr(6, 4), "AB  ");
  EXPECT_EQ(unpackText(record.substr(10, 4)), "A B   ") << "the default table has no dash";
  EXPECT_EQ(unpackText(record.substr(14, 4)), "A/B   ") << "the same code is a slash by default";
  EXPECT_EQ(UnPackDate("C", record, 19), day);
  EXPECT_EQ(UnPackDate("D", record, 21), day) << "one-digit months survive";
  EXPECT_EQ(UnPackDate("R", record, 24), day);
  EXPECT_EQ(Unpack('C', record, 27), 0);
  EXPECT_EQ(Unpack('C', record, 29), 257);
  EXPECT_EQ(MaskTable, kDefaultMaskTable);
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

TEST(SampleRecordFile, ChainsFreedRecordsFromRecordZero) {
  RecordFile file(20);
  file.add("first");
  file.addFreed();
  file.add("third");
  file.addFreed();
  file.replace(3, "changed");
  file.reserve(50);
  const LogicalImage image = file.image();
  EXPECT_EQ(image.lastRecord, 50);
  ASSERT_EQ(image.bytes.size(), 51U * 20U);
  const auto record = [&image](std::int32_t number) {
    return image.bytes.substr(static_cast<std::size_t>(number) * 20, 20);
  };
  EXPECT_EQ(Unpack('J', record(0), 1), -2);
  EXPECT_EQ(Unpack('L', record(0), 7), 4) << "highest number ever used";
  EXPECT_EQ(Unpack('L', record(0), 11), 2) << "records in use";
  std::vector<std::int32_t> chain;
  for (std::int32_t next = Unpack('L', record(0), 3); next >= 1;
       next = Unpack('L', record(next), 3)) {
    ASSERT_LT(chain.size(), 3U);
    chain.push_back(next);
    EXPECT_EQ(Unpack('J', record(next), 1), 0);
  }
  EXPECT_EQ(chain, (std::vector<std::int32_t>{4, 2}));
  EXPECT_EQ(record(3).substr(0, 8), std::string("changed\0", 8));
  file.free(1);
  EXPECT_EQ(Unpack('L', file.image().bytes, 11), 1);
  EXPECT_EQ(Unpack('L', file.image().bytes, 3), 1) << "freed last, taken first";
  EXPECT_EQ(file.image().bytes.substr(20, 6), std::string("\0\0\0\0\0\4", 6));
  EXPECT_EQ(errorNumber([&] { file.free(5); }), 81);
  EXPECT_EQ(errorNumber([&] { file.add(std::string(21, 'x')); }), 36);
  EXPECT_EQ(errorNumber([&] { file.replace(5, ""); }), 81);
}

/// Slots of a control file that are not 0, by byte offset.
std::vector<std::int32_t> entered(const ControlFile& file, std::size_t first, std::size_t last) {
  std::vector<std::int32_t> records;
  for (std::size_t at = 0; at < file.bytes().size(); at += 4) {
    const std::int32_t record = Unpack('L', file.bytes(), static_cast<std::int32_t>(at) + 1);
    if (record == 0) continue;
    EXPECT_GE(at, first * 512);
    EXPECT_LT(at, (last + 1) * 512);
    records.push_back(record);
  }
  return records;
}

TEST(SampleControlFile, GivesEveryJobASlotOfItsOwn) {
  ControlFile jobs;
  for (std::int32_t job = 1; job <= ControlFile::kHighestJob; ++job)
    jobs.setJob(job, job);
  const std::vector<std::int32_t> found = entered(jobs, 451, 571);
  EXPECT_EQ(std::set<std::int32_t>(found.begin(), found.end()).size(), 10'086U);
  EXPECT_EQ(jobs.block(459), std::string(512, '\0')) << "between the table's two ranges";
  EXPECT_EQ(jobs.block(500), std::string(512, '\0'));
  EXPECT_EQ(Unpack('L', jobs.block(458), 4 * (999 - 7 * 128) + 1), 999);
  EXPECT_EQ(Unpack('L', jobs.block(501), 4 * 104 + 1), 1000) << "slots do not count from 999";
  EXPECT_EQ(Unpack('L', jobs.block(502), 4 * 103 + 1), 1127);
  EXPECT_EQ(Unpack('L', jobs.block(571), 4 * 102 + 1), 10'086);
  for (const std::int32_t job : {0, -1, 10'087})
    EXPECT_EQ(errorNumber([&] { jobs.setJob(job, 1); }), kSubscriptOutOfRange);
}

TEST(SampleControlFile, FillsEverySlotOfTheSavedInvoicesOnce) {
  Random random(3, "slots");
  ControlFile invoices;
  std::int32_t count = 0;
  while (invoices.addSavedInvoice(random, count + 1))
    ++count;
  EXPECT_EQ(count, 25 * 4 * 31);
  const std::vector<std::int32_t> found = entered(invoices, 301, 325);
  EXPECT_FALSE(std::is_sorted(found.begin(), found.end()));
  EXPECT_EQ(std::set<std::int32_t>(found.begin(), found.end()).size(), 25U * 4U * 31U);
  for (int group = 0; group < 4; ++group)
    EXPECT_EQ(Unpack('L', invoices.block(301), group * 128 + 1), 0)
        << "a group begins with 4 bytes of its own";
}

}  // namespace
}  // namespace dg::sample
