#pragma once

#include <cstdint>
#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "engine/logical_file.h"
#include "platform/file.h"
#include "tools/check/findings.h"
#include "tools/sample/sample_store.h"

namespace dg::test {

/// An example store in memory whose bytes a test damages, and what a check then finds. Numbers of
/// records, blocks and entries are those of the files; bytes count from 0.
class CheckedStore {
 public:
  /// The store of default options; quick, for it is made once.
  CheckedStore();
  explicit CheckedStore(const SampleOptions& options) : CheckedStore(composeSampleStore(options)) {}
  explicit CheckedStore(const std::vector<SampleFile>& files);

  /// A file by its path below the link share: "LNK001\\PARTDB", "LINKSFILE".
  std::string& file(const std::string& path);
  /// A file of the store directory.
  std::string& inStore(const std::string& name) { return file("LNK001\\" + name); }
  void remove(const std::string& path) { files_.erase(path); }

  /// A logical file's directory entry, and where it stands in its directory.
  struct Located {
    DirectoryEntry entry;
    std::string stem;              ///< "LNK001\\PART"
    std::int64_t entryNumber = 0;  ///< in the directory file
    std::int64_t begin() const { return std::int64_t{entry.Position} * 512; }
  };
  Located locate(const std::string& name);

  /// Byte of a record, or of an index's block, in the data file of a logical file.
  std::int64_t recordOffset(const std::string& name, std::int64_t record);
  std::int64_t blockOffset(const std::string& name, std::int64_t block);
  /// A field of a record at a 1-based position.
  std::int32_t field(const std::string& name, std::int64_t record, char op, std::int32_t position);
  void setField(const std::string& name, std::int64_t record, char op, std::int32_t position,
                std::int32_t value);
  /// The same in a block of an index.
  std::int32_t blockField(const std::string& name, std::int64_t block, char op,
                          std::int32_t position);
  void setBlockField(const std::string& name, std::int64_t block, char op, std::int32_t position,
                     std::int32_t value);
  /// The same in a block of the control file.
  std::int32_t controlField(std::int64_t block, std::int32_t position);
  void setControlField(std::int64_t block, std::int32_t position, std::int32_t value);
  /// The same in an entry of a directory file.
  void setEntryField(const Located& file, char op, std::int32_t position, std::int32_t value);

  /// Records in use by their first field, in order.
  std::vector<std::int64_t> used(const std::string& name);

  /// Puts something around the store's file system, for failing reads.
  using Wrap = std::function<std::unique_ptr<FileSystem>(std::unique_ptr<FileSystem>)>;
  check::Findings check(const Wrap& wrap = {}) { return run(false, wrap); }
  check::Findings checkQuick() { return run(true, {}); }

 private:
  check::Findings run(bool quick, const Wrap& wrap);
  std::string& dataFile(const std::string& name);

  std::map<std::string, std::string> files_;
};

/// The kept findings of a kind.
std::vector<check::Finding> ofKind(const check::Findings& findings, std::string_view kind);
/// Whether there is a finding of a kind, a severity and a file at a numbered place and a byte.
::testing::AssertionResult hasFinding(const check::Findings& findings, check::Severity severity,
                                      std::string_view kind, const std::string& file,
                                      std::int64_t number, std::int64_t offset);
inline ::testing::AssertionResult hasDamage(const check::Findings& findings, std::string_view kind,
                                            const std::string& file, std::int64_t number,
                                            std::int64_t offset) {
  return hasFinding(findings, check::Severity::kDamage, kind, file, number, offset);
}
inline ::testing::AssertionResult hasNote(const check::Findings& findings, std::string_view kind,
                                          const std::string& file, std::int64_t number,
                                          std::int64_t offset) {
  return hasFinding(findings, check::Severity::kNote, kind, file, number, offset);
}

/// Tests of one file of a store, whose findings stand at its records or blocks.
class CheckedFileTest : public ::testing::Test {
 protected:
  CheckedFileTest(CheckedStore sound, std::string file, bool index)
      : store(std::move(sound)), name(std::move(file)), index_(index) {}

  /// The byte of a position in a record or block.
  std::int64_t at(std::int64_t number, std::int32_t position) {
    return (index_ ? store.blockOffset(name, number) : store.recordOffset(name, number)) +
           position - 1;
  }
  void expectDamage(const check::Findings& findings, std::string_view kind, std::int64_t number,
                    std::int32_t position) {
    EXPECT_TRUE(hasDamage(findings, kind, name, number, at(number, position)));
  }
  void expectNote(const check::Findings& findings, std::string_view kind, std::int64_t number,
                  std::int32_t position) {
    EXPECT_TRUE(hasNote(findings, kind, name, number, at(number, position)));
  }

  CheckedStore store;
  const std::string name;

 private:
  bool index_;
};

/// All damage in one text, for messages.
std::string damageText(const check::Findings& findings);

}  // namespace dg::test
