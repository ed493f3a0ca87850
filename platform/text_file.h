#pragma once

#include <string>
#include <string_view>

namespace dg {

/// Reads a text file line by line. Lines end in CR LF, LF or CR; the ends are not part of a line.
/// The text is read in whole at creation and stays bytes.
class TextReader {
 public:
  /// Raises 53, 70 or 76 when the file cannot be opened, 57 when it cannot be read.
  explicit TextReader(const std::string& path);

  bool AtEndOfStream() const { return position_ >= content_.size(); }
  /// The next line. Raises 62 at the end.
  std::string ReadLine();

 private:
  std::string content_;
  std::size_t position_ = 0;
};

/// Appends to a local text file, creating it when missing; opened and closed in this one call.
/// `path` is the program's own, with backslashes. Raises 52, 57, 61, 70 or 76.
void appendText(const std::string& path, std::string_view text);

/// The whole of a local or shared file. Raises as TextReader.
std::string readWholeFile(const std::string& path);

/// Replaces a local file in one step: a reader sees the old content or the new one, and a failure
/// leaves the old one. `nativeFile` is a path of the platform's. Raises 57, 61, 70 or 76.
void replaceFile(const std::string& nativeFile, std::string_view content);

}  // namespace dg
