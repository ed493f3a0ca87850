#include "platform/text_file.h"

#include <algorithm>

#include "platform/file.h"
#include "platform/run_time_error.h"
#include "platform/system_file.h"

namespace dg {

namespace {

/// A text of the run-time holds no more bytes.
constexpr std::int64_t kLongestText = 0x7fffffff;

constexpr std::size_t kReadAtOnce = std::size_t{1} << 16;

}  // namespace

std::string readAll(File& file) {
  const std::int64_t expected = file.size();
  if (expected > kLongestText) throw RunTimeError(kOutOfMemory);
  std::string content(static_cast<std::size_t>(std::max<std::int64_t>(expected, 0)), '\0');
  std::size_t done = file.read(0, content.data(), content.size());
  // The file may have grown since its length was taken.
  const bool mayHaveMore = done == content.size();
  content.resize(done);
  while (mayHaveMore) {
    content.resize(done + kReadAtOnce);
    const std::size_t got =
        file.read(static_cast<std::int64_t>(done), content.data() + done, kReadAtOnce);
    done += got;
    content.resize(done);
    if (got < kReadAtOnce) break;
    if (static_cast<std::int64_t>(done) > kLongestText) throw RunTimeError(kOutOfMemory);
  }
  return content;
}

TextReader::TextReader(const std::string& path) : content_(readWholeFile(path)) {}

std::string TextReader::ReadLine() {
  if (AtEndOfStream()) throw RunTimeError(kInputPastEnd);
  const std::size_t end = std::min(content_.find_first_of("\r\n", position_), content_.size());
  std::string line = content_.substr(position_, end - position_);
  position_ = end;
  if (position_ < content_.size()) {
    const bool pair = content_.compare(position_, 2, "\r\n") == 0;
    position_ += pair ? 2 : 1;
  }
  return line;
}

std::string readWholeFile(const std::string& path) {
  return readAll(*fileSystem().open(path, FileAccess::kRead));
}

}  // namespace dg
