#include "tests/support/checked_store.h"

#include <algorithm>
#include <stdexcept>

#include "engine/codec.h"
#include "tests/support/memory_file_system.h"
#include "tests/support/scopes.h"
#include "tools/check/store_check.h"
#include "tools/check/store_reader.h"

namespace dg::test {

namespace {

constexpr std::string_view kShareFolder = "share/SRV1/VLMRLNK/";

std::int32_t read(const std::string& bytes, std::int64_t offset, char op) {
  return Unpack(op, bytes, static_cast<std::int32_t>(offset) + 1);
}

void write(std::string& bytes, std::int64_t offset, char op, std::int32_t value) {
  Pack(op, bytes, value, static_cast<std::int32_t>(offset) + 1);
}

}  // namespace

CheckedStore::CheckedStore() {
  static const CheckedStore made{SampleOptions{}};
  files_ = made.files_;
}

CheckedStore::CheckedStore(const std::vector<SampleFile>& files) {
  for (const SampleFile& file : files) {
    if (!file.path.starts_with(kShareFolder)) continue;
    std::string path = file.path.substr(kShareFolder.size());
    std::replace(path.begin(), path.end(), '/', '\\');
    files_.emplace(std::move(path), file.content);
  }
}

std::string& CheckedStore::file(const std::string& path) {
  return files_.at(path);
}

CheckedStore::Located CheckedStore::locate(const std::string& name) {
  for (const auto& [path, content] : files_) {
    if (!path.ends_with("LK")) continue;
    for (std::size_t at = 0; at < content.size(); at += DirectoryEntry::kSize) {
      DirectoryEntry entry = DirectoryEntry::decode(content.substr(at, DirectoryEntry::kSize));
      if (entry.FileName != name) continue;
      return {.entry = std::move(entry),
              .stem = path.substr(0, path.size() - 2),
              .entryNumber = static_cast<std::int64_t>(at) / DirectoryEntry::kSize};
    }
  }
  throw std::out_of_range(name);
}

std::string& CheckedStore::dataFile(const std::string& name) {
  return files_.at(locate(name).stem + "DB");
}

std::int64_t CheckedStore::recordOffset(const std::string& name, std::int64_t record) {
  const Located file = locate(name);
  return file.begin() + record * file.entry.RecordLength;
}

std::int64_t CheckedStore::blockOffset(const std::string& name, std::int64_t block) {
  return locate(name).begin() + block * 512;
}

std::int32_t CheckedStore::field(const std::string& name, std::int64_t record, char op,
                                 std::int32_t position) {
  return read(dataFile(name), recordOffset(name, record) + position - 1, op);
}

void CheckedStore::setField(const std::string& name, std::int64_t record, char op,
                            std::int32_t position, std::int32_t value) {
  write(dataFile(name), recordOffset(name, record) + position - 1, op, value);
}

std::int32_t CheckedStore::blockField(const std::string& name, std::int64_t block, char op,
                                      std::int32_t position) {
  return read(dataFile(name), blockOffset(name, block) + position - 1, op);
}

void CheckedStore::setBlockField(const std::string& name, std::int64_t block, char op,
                                 std::int32_t position, std::int32_t value) {
  write(dataFile(name), blockOffset(name, block) + position - 1, op, value);
}

std::int32_t CheckedStore::controlField(std::int64_t block, std::int32_t position) {
  return read(inStore("FILE0"), block * 512 + position - 1, 'L');
}

void CheckedStore::setControlField(std::int64_t block, std::int32_t position, std::int32_t value) {
  write(inStore("FILE0"), block * 512 + position - 1, 'L', value);
}

void CheckedStore::setEntryField(const Located& located, char op, std::int32_t position,
                                 std::int32_t value) {
  write(file(located.stem + "LK"), located.entryNumber * DirectoryEntry::kSize + position - 1, op,
        value);
}

std::vector<std::int64_t> CheckedStore::used(const std::string& name) {
  std::vector<std::int64_t> records;
  const std::int32_t highUsed = field(name, 0, 'L', 7);
  for (std::int64_t record = 1; record <= highUsed; ++record) {
    if (field(name, record, 'J', 1) > 0) records.push_back(record);
  }
  return records;
}

check::Findings CheckedStore::run(bool quick, const Wrap& wrap) {
  constexpr std::size_t kFindingsOfAFile = 1000;
  auto memory = std::make_unique<MemoryFileSystem>();
  for (const auto& [path, content] : files_)
    memory->add("\\\\SRV1\\VLMRLNK\\" + path, content);
  std::unique_ptr<FileSystem> files = std::move(memory);
  if (wrap) files = wrap(std::move(files));
  const FileSystemScope scope(std::move(files));
  check::Findings findings(kFindingsOfAFile);
  check::StoreReader reader("SRV1", "LNK001");
  check::checkStore(reader, findings, {.quick = quick, .progress = {}});
  return findings;
}

std::vector<check::Finding> ofKind(const check::Findings& findings, std::string_view kind) {
  std::vector<check::Finding> result;
  for (const check::FileFindings& file : findings.files()) {
    for (const check::Finding& finding : file.kept) {
      if (finding.kind == kind) result.push_back(finding);
    }
  }
  return result;
}

::testing::AssertionResult hasFinding(const check::Findings& findings, check::Severity severity,
                                      std::string_view kind, const std::string& file,
                                      std::int64_t number, std::int64_t offset) {
  ::testing::AssertionResult missing = ::testing::AssertionFailure();
  missing << "no " << kind << " of " << file << " at " << number << ", byte " << offset << "; got:";
  for (const check::Finding& finding : ofKind(findings, kind)) {
    const check::Place& place = finding.place;
    if (finding.severity == severity && place.file == file && place.number == number &&
        place.offset == offset) {
      return ::testing::AssertionSuccess();
    }
    missing << "\n  " << place.file << " " << place.number << ", byte " << place.offset.value_or(-1)
            << ": " << finding.text;
  }
  return missing << "\n" << damageText(findings);
}

std::string damageText(const check::Findings& findings) {
  std::string text;
  for (const check::FileFindings& file : findings.files()) {
    for (const check::Finding& finding : file.kept) {
      if (finding.severity != check::Severity::kDamage) continue;
      text += file.file + " " + std::string(finding.kind) + " " +
              std::to_string(finding.place.number) + ": " + finding.text + "\n";
    }
  }
  return text;
}

}  // namespace dg::test
