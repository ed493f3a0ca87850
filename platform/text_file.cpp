#include "platform/text_file.h"

#include <algorithm>
#include <utility>

#include "platform/file.h"
#include "platform/system_file.h"
#include "platform/values/run_time_error.h"

namespace dg {

namespace {

/// A text of the run-time holds no more bytes.
constexpr std::int64_t kLongestText = 0x7fffffff;

}  // namespace

std::string readAll(File& file) {
  std::string content;
  // The file may grow meanwhile, so its length is taken again behind what has been read.
  for (;;) {
    const std::int64_t length = file.size();
    if (length > kLongestText) throw RunTimeError(kOutOfMemory);
    const std::size_t done = content.size();
    if (std::cmp_less_equal(length, done)) return content;
    content.resize(static_cast<std::size_t>(length));
    const std::size_t got =
        file.read(static_cast<std::int64_t>(done), content.data() + done, content.size() - done);
    const bool isCutShort = got < content.size() - done;
    content.resize(done + got);
    if (isCutShort) return content;
  }
}

TextReader::TextReader(const std::string& path) : content_(readWholeFile(path)) {}

TextReader::TextReader(File& file) : content_(readAll(file)) {}

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
