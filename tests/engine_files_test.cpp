#include <gtest/gtest.h>

#include "engine/state.h"
#include "tests/support/engine_store.h"
#include "tests/support/error_number.h"
#include "tests/support/raised.h"

namespace dg::test {
namespace {

using namespace std::string_literals;

class EngineFiles : public testing::Test {
 protected:
  void SetUp() override {
    store_.files().add(EngineStore::inStore("FILE0"),
                       std::string(512, 'a') + std::string(512, 'b') + "tail");
  }

  EngineStore store_;
  const cBusinessBasic& engine_ = store_.engine();
  bool orb_ = false;
};

TEST_F(EngineFiles, ANameLiesInTheStoreDirectory) {
  std::string name = "FILE0";
  const auto file = engine_.OpenFile(name);
  ASSERT_NE(file, nullptr);
  EXPECT_EQ(name, EngineStore::inStore("FILE0"));
  EXPECT_EQ(file->Path, name);
  EXPECT_EQ(file->Position, 0);

  store_.files().add(EngineStore::onShare("other\\X"), "x");
  std::string path = EngineStore::onShare("other\\X");
  EXPECT_NE(engine_.OpenFile(path), nullptr);
  EXPECT_EQ(path, EngineStore::onShare("other\\X"));
}

TEST_F(EngineFiles, AMissingFileIsNothingAndRaisesNothing) {
  std::string name = "NONE";
  EXPECT_EQ(engine_.OpenFile(name), nullptr);
  EXPECT_EQ(name, EngineStore::inStore("NONE"));
  EXPECT_EQ(engine_.OpenFile(""), nullptr);
  EXPECT_EQ(engine_.OpenFile(EngineStore::onShare("..\\..\\x")), nullptr);
  EXPECT_EQ(engine_.OpenFile("a\0b"s), nullptr);
  EXPECT_EQ(OpenFiles->Count(), 0);
}

TEST_F(EngineFiles, OpensOnceForAll) {
  const auto first = engine_.OpenFile("FILE0");
  const auto second = engine_.OpenFile("file0");
  EXPECT_EQ(first->vbFileNumber, second->vbFileNumber);
  EXPECT_EQ(OpenFiles->Count(), 1);
  // The first caller's object is its own, later ones share the collection's.
  EXPECT_NE(first, second);
  EXPECT_EQ(second, engine_.OpenFile("FILE0"));

  engine_.CloseFile(first);
  EXPECT_EQ(OpenFiles->Count(), 0);
  EXPECT_EQ(errorNumber([&] { engine_.ReadFile(second, 1, 0, orb_); }), kBadFileNumber);
}

TEST_F(EngineFiles, ClosesByNameToo) {
  engine_.OpenFile("FILE0");
  engine_.CloseFile("FILE0");
  EXPECT_EQ(OpenFiles->Count(), 0);
  engine_.CloseFile("FILE0");  // opened, then closed
  engine_.CloseFile("NONE");
  EXPECT_EQ(OpenFiles->Count(), 0);
  EXPECT_EQ(errorNumber([&] { engine_.CloseFile(std::shared_ptr<cOpenFile>()); }), kObjectNotSet);
}

TEST_F(EngineFiles, ReadsAtOffsetsAndGivesNulsPastTheEnd) {
  const auto file = engine_.OpenFile("FILE0");
  orb_ = true;
  EXPECT_EQ(engine_.ReadFile(file, 4, 510, orb_), "aabb");
  EXPECT_FALSE(orb_);
  EXPECT_EQ(engine_.BlockReadFile("FILE0", 1, orb_), std::string(512, 'b'));
  EXPECT_EQ(engine_.BlockReadFile(file, 2, orb_), "tail" + std::string(508, '\0'));
  EXPECT_EQ(engine_.BlockReadFile(file, 900, orb_), std::string(512, '\0'));
  EXPECT_EQ(engine_.ReadFile(file, 0, 0, orb_), "");
  EXPECT_EQ(file->Position, 0);
}

TEST_F(EngineFiles, RefusesBadReads) {
  const auto file = engine_.OpenFile("FILE0");
  EXPECT_EQ(errorNumber([&] { engine_.ReadFile(file, 1, -1, orb_); }), kBadRecordNumber);
  EXPECT_EQ(errorNumber([&] { engine_.BlockReadFile(file, -1, orb_); }), kBadRecordNumber);
  EXPECT_EQ(errorNumber([&] { engine_.ReadFile(file, -1, 0, orb_); }), kInvalidProcedureCall);
  EXPECT_EQ(errorNumber([&] { engine_.BlockReadFile(file, 4194304, orb_); }), kOverflow);
  EXPECT_EQ(errorNumber([&] { engine_.BlockReadFile(file, -4194305, orb_); }), kOverflow);
  EXPECT_EQ(errorNumber([&] { engine_.ReadFile("NONE", 1, 0, orb_); }), kObjectNotSet);
  EXPECT_EQ(errorNumber([&] { engine_.BlockReadFile("NONE", 0, orb_); }), kObjectNotSet);
}

TEST_F(EngineFiles, WritesKeepThePositionOfTheObject) {
  const auto file = engine_.OpenFile("FILE0");
  orb_ = true;
  engine_.WriteFile(file, "XY", 3, orb_);
  EXPECT_FALSE(orb_);
  EXPECT_EQ(file->Position, 3);
  engine_.WriteFile(file, "Z", -1, orb_);  // where the object stands: it did not advance
  EXPECT_EQ(file->Position, 3);
  engine_.BlockWriteFile(file, 1, "short", orb_);
  EXPECT_EQ(file->Position, 512);
  const std::string content = store_.readWhole(EngineStore::inStore("FILE0"));
  EXPECT_EQ(content.substr(0, 7), "aaaZYaa");
  EXPECT_EQ(content.substr(510, 8), "aashortb");
  EXPECT_EQ(content.size(), 1028U);

  EXPECT_EQ(raised([&] { engine_.WriteFile("NONE", "x", 0, orb_); }),
            (Raised{-10, "iwriteFile", "OpenFile parameter is undefined"}));
  EXPECT_EQ(errorNumber([&] { engine_.BlockWriteFile(file, 4194304, "x", orb_); }), kOverflow);
}

}  // namespace
}  // namespace dg::test
