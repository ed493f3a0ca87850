#include "tests/support/memory_file_system.h"

#include <algorithm>
#include <utility>

#include "platform/file.h"
#include "platform/text.h"
#include "platform/values/run_time_error.h"

namespace dg {

namespace {

/// A damaged offset must not make a write fill the machine's memory.
constexpr std::int64_t kLongestMemoryFile = std::int64_t{256} << 20;

class MemoryFile final : public File {
 public:
  MemoryFile(std::shared_ptr<std::string> content, FileAccess access)
      : content_(std::move(content)), access_(access) {}

  std::size_t read(std::int64_t offset, char* buffer, std::size_t count) override {
    if (offset < 0) throw RunTimeError(kBadRecordNumber);
    const std::size_t begin = std::min(static_cast<std::size_t>(offset), content_->size());
    const std::size_t available = std::min(count, content_->size() - begin);
    content_->copy(buffer, available, begin);
    countRead(available);
    return available;
  }

  void write(std::int64_t offset, std::string_view data) override {
    if (offset < 0) throw RunTimeError(kBadRecordNumber);
    if (access_ != FileAccess::kReadWrite) throw RunTimeError(kPermissionDenied);
    const auto length = static_cast<std::int64_t>(data.size());
    if (offset > kLongestMemoryFile || length > kLongestMemoryFile - offset) {
      throw RunTimeError(kDiskFull);
    }
    if (data.empty()) return;
    const auto begin = static_cast<std::size_t>(offset);
    if (content_->size() < begin + data.size()) content_->resize(begin + data.size(), '\0');
    content_->replace(begin, data.size(), data);
  }

  std::int64_t size() override { return static_cast<std::int64_t>(content_->size()); }

 private:
  std::shared_ptr<std::string> content_;
  FileAccess access_;
};

/// The path's key: lower case, runs of backslashes inside as one, none at the end.
std::string keyOf(std::string_view path) {
  std::string key;
  for (const char c : path) {
    if (c == '\\' && key.size() > 1 && key.back() == '\\') continue;
    key.push_back(c);
  }
  while (!key.empty() && key.back() == '\\')
    key.pop_back();
  return lowerCase(key);
}

}  // namespace

void MemoryFileSystem::add(const std::string& path, std::string content) {
  files_[keyOf(path)] = std::make_shared<std::string>(std::move(content));
}

std::unique_ptr<File> MemoryFileSystem::open(const std::string& path, FileAccess access) {
  const auto found = files_.find(keyOf(path));
  if (found == files_.end()) {
    if (directoryExists(path)) throw RunTimeError(kPathFileAccess);
    const std::size_t end = path.rfind('\\');
    const bool inDirectory = end == std::string::npos || directoryExists(path.substr(0, end));
    throw RunTimeError(inDirectory ? kFileNotFound : kPathNotFound);
  }
  if (readOnly_ && access == FileAccess::kReadWrite) throw RunTimeError(kPathFileAccess);
  return std::make_unique<MemoryFile>(found->second, access);
}

bool MemoryFileSystem::fileExists(const std::string& path) {
  return files_.find(keyOf(path)) != files_.end();
}

bool MemoryFileSystem::directoryExists(const std::string& path) {
  const std::string below = keyOf(path) + "\\";
  const auto first = files_.lower_bound(below);
  return first != files_.end() && first->first.compare(0, below.size(), below) == 0;
}

}  // namespace dg
