#include <gtest/gtest.h>

#include "engine/codec.h"
#include "engine/record_zero.h"
#include "engine/state.h"
#include "engine/walk_guard.h"
#include "tests/support/engine_store.h"
#include "tests/support/error_number.h"
#include "tests/support/raised.h"

namespace dg::test {
namespace {

// Record zero and a freed record, by positions of the test's own.
constexpr std::int32_t kMarker = 1;
constexpr std::int32_t kFreeHead = 3;
constexpr std::int32_t kHighUsedRecord = 7;
constexpr std::int32_t kActiveCount = 11;
constexpr std::int32_t kNextFree = 3;

using namespace std::string_literals;

/// A record file of records 0 to 4, of 100 bytes each, behind a block of something else: the data
/// records are in use and full of their number.
std::string records() {
  std::string content(100, '\0');
  Pack('J', content, -2, kMarker);
  Pack('L', content, -1, kFreeHead);
  Pack('L', content, 4, kHighUsedRecord);
  Pack('L', content, 3, kActiveCount);
  for (char number = '1'; number <= '4'; ++number)
    content += std::string(100, number);
  content.resize(700, '\0');
  return content;
}

class EngineLogical : public testing::Test {
 protected:
  void SetUp() override {
    store_.place("OTHER", 'X', 512, 1, std::string(512, 'o'));
    store_.place("PUTBL", 'L', 100, 6, records());
  }

  const cBusinessBasic& engine() { return store_.engine(); }
  std::string record(std::int32_t number) { return engine().LreadFile("PUTBL", number, orb_); }
  std::string recordZero() { return store_.dataFile().substr(512, 16); }

  EngineStore store_;
  bool orb_ = false;
};

TEST_F(EngineLogical, FindsAFileByItsName) {
  const auto file = engine().LogicalOpen("PUTBL");
  ASSERT_NE(file, nullptr);
  EXPECT_EQ(file->FileName, "PUTBL");
  EXPECT_EQ(file->FileType, "L");
  EXPECT_EQ(file->Position, 1);
  EXPECT_EQ(file->Flags, 0);
  EXPECT_EQ(file->RecordLength, 100);
  EXPECT_EQ(file->LastRecord, 6);
  ASSERT_NE(file->OpenFile, nullptr);
  EXPECT_EQ(file->OpenFile->Path, EngineStore::inStore("DATADB"));

  const std::uint64_t reads = readStatistics().calls;
  EXPECT_EQ(engine().LogicalOpen("PUTBL"), file);
  EXPECT_EQ(readStatistics().calls, reads);
  // The same file under another spelling is an entry of its own, on the same physical file.
  const auto full = engine().LogicalOpen(":LNK001:PUTBL");
  EXPECT_NE(full, file);
  EXPECT_EQ(full->FileName, ":LNK001:PUTBL");
  EXPECT_EQ(full->OpenFile->vbFileNumber, file->OpenFile->vbFileNumber);
}

TEST_F(EngineLogical, ANameWithoutALinkIsNothing) {
  EXPECT_EQ(engine().LogicalOpen("NONE"), nullptr);
  EXPECT_EQ(engine().LogicalOpen(":x:PUTBL"), nullptr);
  EXPECT_EQ(engine().LogicalOpen(""), nullptr);
  const Raised notFound{-10, "LogicalOpen", "File not Found: \"NONE\""};
  EXPECT_EQ(raised([&] { engine().LreadFile("NONE", 1, orb_); }), notFound);
  EXPECT_EQ(raised([&] { engine().LwriteFile("NONE", 1, "", orb_); }), notFound);
  EXPECT_EQ(raised([&] { engine().LogicalLock("NONE", 1); }), notFound);
  std::int32_t number = 0;
  EXPECT_EQ(raised([&] { engine().GetRec("NONE", number, orb_); }), notFound);
  EXPECT_EQ(raised([&] { engine().DelRec("NONE", 1, orb_); }), notFound);
  EXPECT_EQ(raised([&] { engine().InitFile("NONE", 4, false, 100, orb_); }), notFound);
  EXPECT_EQ(raised([&] { engine().KLength("NONE", orb_); }), notFound);
}

TEST_F(EngineLogical, ANameThatTheDirectoryLacksIsABlankFile) {
  store_.addLink(":LNK001:GHOST", "LNK001:DATALK");
  const auto file = engine().LogicalOpen("GHOST");
  ASSERT_NE(file, nullptr);
  EXPECT_EQ(file->FileName, "");
  EXPECT_EQ(file->FileType, "");
  EXPECT_EQ(file->Position, 0);
  EXPECT_EQ(file->RecordLength, 0);
  EXPECT_EQ(file->LastRecord, 0);
  EXPECT_NE(engine().LogicalOpen("GHOST"), file);  // it has no key
  EXPECT_EQ(raised([&] { engine().LreadFile("GHOST", 1, orb_); }),
            (Raised{81, "iLreadFile", "Illegal Record Number for File:  and Record:  1"}));
}

TEST_F(EngineLogical, ReadsTheDirectoryToItsRaggedEnd) {
  std::string directory;
  for (int i = 0; i < 300; ++i)
    directory += directoryEntry("F" + std::to_string(i), i, 10, 'L', i);
  std::string flagged = directoryEntry("FLAGS", 1, 10, 'L', 1);
  Pack('C', flagged, 0x4142, 7);  // "AB" in the last bytes of the name
  directory += flagged + directoryEntry("CUT", 7, 9, 'L', 0x01020304).substr(0, 18);
  store_.files().add(EngineStore::inStore("MANYLK"), directory);
  for (const char* name : {"F299", "FLAGS", "CUT", "f1"})
    store_.addLink(":m:"s + name, "LNK001:MANYLK");

  EXPECT_EQ(engine().LogicalOpen(":m:F299")->LastRecord, 299);
  EXPECT_EQ(engine().LogicalOpen(":m:FLAGS")->LastRecord, 0);
  EXPECT_EQ(engine().LogicalOpen(":m:f1")->FileName, "");  // links ignore case, the directory not
  const auto cut = engine().LogicalOpen(":m:CUT");
  EXPECT_EQ(cut->Position, 7);
  EXPECT_EQ(cut->LastRecord, 0x01020000);
  EXPECT_EQ(DirectoryEntry::decode(flagged).FileName, "FLAGS\0AB"s);
  EXPECT_EQ(DirectoryEntry::decode(flagged).Flags, 0x4142);
  EXPECT_EQ(DirectoryEntry::decode(directoryEntry("FAR", 0x010002, 256, 'L', 9)).Position,
            0x010002);
}

TEST_F(EngineLogical, ReadsRecordsByNumber) {
  EXPECT_EQ(record(1), std::string(100, '1'));
  EXPECT_EQ(record(4), std::string(100, '4'));
  EXPECT_EQ(record(6), std::string(100, '\0'));  // never used, within the capacity
  EXPECT_EQ(raised([&] { record(0); }),
            (Raised{81, "iLreadFile", "Illegal Record Number for File: PUTBL and Record:  0"}));
  EXPECT_EQ(raised([&] { record(7); }),
            (Raised{81, "iLreadFile", "Illegal Record Number for File: PUTBL and Record:  7"}));
  EXPECT_EQ(raised([&] { record(-3); }),
            (Raised{81, "iLreadFile", "Illegal Record Number for File: PUTBL and Record: -3"}));
  EXPECT_EQ(raised([&] { engine().LreadFile(std::shared_ptr<cLogicalFile>(), 1, orb_); }),
            (Raised{-10, "iLreadFile", "LogicalFile parameter is undefined"}));
}

TEST_F(EngineLogical, AnOffsetBeyond32BitsOverflows) {
  const auto file = engine().LogicalOpen("PUTBL");
  cLogicalFile huge = *file;
  huge.LastRecord = INT32_MAX;
  EXPECT_EQ(huge.recordOffset(21474831), 2147483100 + 512);
  EXPECT_EQ(errorNumber([&] { huge.recordOffset(21474832); }), kOverflow);
  EXPECT_EQ(errorNumber([&] { huge.recordOffset(INT32_MAX); }), kOverflow);
  huge.Position = 0xFFFFFF;  // the directory's highest
  EXPECT_EQ(errorNumber([&] { huge.recordOffset(1); }), kOverflow);
}

TEST_F(EngineLogical, AFileWhoseDataFileIsNotThereRaisesOnReading) {
  store_.files().add(EngineStore::inStore("NODATALK"), directoryEntry("N", 0, 10, 'L', 5));
  store_.addLink(":LNK001:N", "LNK001:NODATALK");
  const auto file = engine().LogicalOpen("N");
  EXPECT_EQ(file->OpenFile, nullptr);
  EXPECT_EQ(errorNumber([&] { engine().LreadFile(file, 1, orb_); }), kObjectNotSet);
  EXPECT_EQ(file->ActiveCount(orb_), 0);
}

TEST_F(EngineLogical, CountsComeFromRecordZeroAtEachCall) {
  const auto file = engine().LogicalOpen("PUTBL");
  EXPECT_EQ(file->ActiveCount(orb_), 3);
  EXPECT_EQ(file->HighUsedRecord(orb_), 4);
  std::string head = recordZero();
  Pack('L', head, 77, kHighUsedRecord);
  engine().WriteFile(file->OpenFile, head, 512, orb_);
  EXPECT_EQ(file->HighUsedRecord(orb_), 77);
  EXPECT_EQ(engine().LogicalOpen("OTHER")->ActiveCount(orb_), 0);
  EXPECT_EQ(engine().LogicalOpen("OTHER")->HighUsedRecord(orb_), 0);
}

TEST_F(EngineLogical, OpensAPlainFileAsRecords) {
  store_.files().add(EngineStore::inStore("R1000"), std::string(1000, 'r'));
  store_.files().add(EngineStore::inStore("R1099"), std::string(1099, 'r'));
  std::int32_t last = 0;
  const auto file = engine().PhysLogicalOpen("R1000", "L", 100, last);
  EXPECT_EQ(last, 9);
  EXPECT_EQ(file->LastRecord, 9);
  EXPECT_EQ(file->Position, 0);
  EXPECT_EQ(engine().LreadFile(file, 9, orb_), std::string(100, 'r'));
  last = 0;
  engine().PhysLogicalOpen("R1099", "L", 100, last);
  EXPECT_EQ(last, 9);
  last = 3;
  EXPECT_NE(engine().PhysLogicalOpen("R1099", "L", 100, last), file);
  EXPECT_EQ(last, 3);
  EXPECT_EQ(LogicalFiles->Count(), 3);

  last = 0;
  EXPECT_EQ(errorNumber([&] { engine().PhysLogicalOpen("R1000", "L", 0, last); }), kDivisionByZero);
  EXPECT_EQ(engine().PhysLogicalOpen("NONE", "L", 0, last), nullptr);
}

TEST_F(EngineLogical, WritesRecordsWithChecksOfItsOwn) {
  orb_ = true;
  EXPECT_EQ(engine().LwriteFile("PUTBL", 2, std::string(100, 'w'), orb_), "");
  EXPECT_TRUE(orb_);  // not handed down
  EXPECT_EQ(record(2), std::string(100, 'w'));
  EXPECT_EQ(record(1), std::string(100, '1'));
  EXPECT_EQ(record(3), std::string(100, '3'));
  // The capacity is told, not the number.
  EXPECT_EQ(raised([&] { engine().LwriteFile("PUTBL", 0, "", orb_); }),
            (Raised{81, "iLwriteFile", "Illegal Record Number for File: PUTBL and Record:  6"}));
  EXPECT_EQ(raised([&] { engine().LwriteFile("PUTBL", 1, "abc", orb_); }),
            (Raised{36, "iLwriteFile",
                    "Illegal Data length for this record.  Size is:  3 and should be  100"}));
  EXPECT_EQ(raised([&] { engine().LwriteFile(std::shared_ptr<cLogicalFile>(), 1, "", orb_); }),
            (Raised{-10, "iLwriteFile", "LogicalFile parameter is undefined"}));
}

TEST_F(EngineLogical, DeletesRecordsOntoTheFreeChain) {
  engine().DelRec("PUTBL", 3, orb_);
  std::string freed(100, '\0');
  Pack('L', freed, -1, kNextFree);
  EXPECT_EQ(record(3), freed);
  EXPECT_EQ(Unpack('L', recordZero(), kFreeHead), 3);
  EXPECT_EQ(Unpack('L', recordZero(), kActiveCount), 2);
  EXPECT_EQ(Unpack('L', recordZero(), kHighUsedRecord), 4);

  EXPECT_EQ(raised([&] { engine().DelRec("PUTBL", 3, orb_); }),
            (Raised{81, "DelRec", "Attempt to delete a deleted record"}));
  engine().DelRec("PUTBL", 1, orb_);
  EXPECT_EQ(Unpack('L', record(1), kNextFree), 3);
  engine().DelRec("PUTBL", 2, orb_);
  engine().DelRec("PUTBL", 4, orb_);  // the count was 3: it stops at 0
  EXPECT_EQ(Unpack('L', recordZero(), kActiveCount), 0);
  EXPECT_EQ(errorNumber([&] { engine().DelRec("PUTBL", 7, orb_); }), 81);
}

TEST_F(EngineLogical, HandsOutRecordsFromTheChainThenFromTheEnd) {
  engine().DelRec("PUTBL", 3, orb_);
  engine().DelRec("PUTBL", 1, orb_);
  const auto file = engine().LogicalOpen("PUTBL");
  EXPECT_EQ(allocateRecord(*file, orb_), 1);
  EXPECT_EQ(allocateRecord(*file, orb_), 3);
  EXPECT_EQ(allocateRecord(*file, orb_), 5);
  EXPECT_EQ(allocateRecord(*file, orb_), 6);
  EXPECT_EQ(allocateRecord(*file, orb_), 7);  // the capacity is not looked at
  EXPECT_EQ(file->HighUsedRecord(orb_), 7);
  EXPECT_EQ(file->ActiveCount(orb_), 6);
}

TEST_F(EngineLogical, NothingCanBeLocked) {
  EXPECT_EQ(engine().PhysicalLock("PUTBL", 0, 16), 0);
  EXPECT_EQ(engine().LogicalLock("PUTBL", 0), 0);
  EXPECT_EQ(engine().ReleaseLock(5), 0);
  EXPECT_EQ(errorNumber([&] { engine().LogicalLock("PUTBL", INT32_MAX); }), kOverflow);
  std::int32_t number = 99;
  EXPECT_EQ(raised([&] { engine().GetRec("PUTBL", number, orb_); }),
            (Raised{57, "iGetRec", "Could not obtain a Lock on Record Zero of PUTBL"}));
  EXPECT_EQ(number, 99);
}

TEST_F(EngineLogical, InitialisesARecordFile) {
  engine().InitFile("PUTBL", 0, false, 0, orb_);
  const auto file = engine().LogicalOpen("PUTBL");
  EXPECT_EQ(file->ActiveCount(orb_), 0);
  EXPECT_EQ(Unpack('J', recordZero(), kMarker), -2);
  EXPECT_EQ(Unpack('L', recordZero(), kFreeHead), -1);
  EXPECT_EQ(allocateRecord(*file, orb_), 1);
  for (std::int32_t number = 1; number <= 6; ++number)
    EXPECT_EQ(record(number), std::string(100, '\0')) << number;
  EXPECT_EQ(store_.dataFile().substr(0, 512), std::string(512, 'o'));
  EXPECT_EQ(
      raised([&] { engine().InitFile(std::shared_ptr<cLogicalFile>(), 4, false, 100, orb_); }),
      (Raised{-10, "iLwriteFile", "LogicalFile parameter is undefined"}));
}

TEST_F(EngineLogical, InitialisesAnIndexThatReadsAsEmpty) {
  store_.place("PUTBI", 'I', 512, 9, std::string(1024, 'x'));
  engine().InitFile("PUTBI", 12, true, 200, orb_);
  const std::string header =
      store_.dataFile().substr(static_cast<std::size_t>(store_.startBlock("PUTBI")) * 512, 512);
  EXPECT_EQ(Unpack('C', header, 1), 16);
  EXPECT_EQ(Unpack('C', header, 3), 31);
  EXPECT_EQ(Unpack('C', header, 5), 9);
  EXPECT_EQ(Unpack('C', header, 7), 2);
  EXPECT_EQ(Unpack('C', header, 9), 1);
  EXPECT_EQ(Unpack('C', header, 11), 62);
  EXPECT_EQ(Unpack('C', header, 13), 65535);
  EXPECT_EQ(engine().KCount("PUTBI", orb_), 0);
  EXPECT_EQ(engine().KLength("PUTBI", orb_), 12);

  engine().InitFile("PUTBI", 12, false, 99, orb_);
  const std::string block =
      store_.dataFile().substr(static_cast<std::size_t>(store_.startBlock("PUTBI")) * 512, 512);
  EXPECT_EQ(Unpack('C', block, 11), 0);
  EXPECT_EQ(Unpack('C', block, 13), 0);
  EXPECT_EQ(errorNumber([&] { engine().InitFile("PUTBI", -4, false, 99, orb_); }), kDivisionByZero);

  const std::string before = store_.dataFile();
  engine().InitFile("OTHER", 12, true, 200, orb_);  // neither records nor index
  EXPECT_EQ(store_.dataFile(), before);
}

/// A directory may tell any capacity and the physical file be long: a circle must not have
/// to be walked until either is reached, and a sound walk must not pass for one.
TEST(WalkGuardTest, AWalkEndsSoonWhereItMeetsItself) {
  cLogicalFile file;
  file.LastRecord = INT32_MAX;
  WalkGuard sound(file);
  for (std::int64_t record = 400; record >= -1; --record)
    EXPECT_NO_THROW(sound.step(record));

  for (const int lead : {0, 1, 5, 40}) {
    for (const int length : {1, 2, 7, 60}) {
      WalkGuard guard(file);
      const auto walk = [&] {
        for (int i = 0; i < 500; ++i)
          guard.step(i < lead ? i : lead + (i - lead) % length);
      };
      EXPECT_EQ(errorNumber(walk), kOverflow) << lead << " places before a circle of " << length;
    }
  }
}

}  // namespace
}  // namespace dg::test
