#pragma once

#include <string>
#include <string_view>

namespace dg {

/// Reads a text file line by line. Lines end in CR LF, LF or CR; the ends are not part of a line.
/// The text is read in whole at creation and stays bytes. `path` is the program's own form.
class TextReader {
 public:
  /// Raises as FileSystem::open when the file cannot be opened, 57 when it cannot be read, 7 when
  /// it is longer than a text can be (2 GB).
  explicit TextReader(const std::string& path);

  bool AtEndOfStream() const { return position_ >= content_.size(); }
  /// The next line; the last one needs no line end. Raises 62 at the end.
  std::string ReadLine();

 private:
  std::string content_;
  std::size_t position_ = 0;
};

/// Appends to a local text file, creating it when missing; opened and closed in this one call.
/// `path` is the program's own, with backslashes; a share's is refused outside Windows. Raises 57,
/// 61, 70, 75 or 76.
void appendText(const std::string& path, std::string_view text);

/// The whole of a local or shared file. Raises as TextReader.
std::string readWholeFile(const std::string& path);

/// Who may read a file that did not exist before: those whom the user's defaults allow, or the
/// user.
enum class NewFileMode { kDefault, kPrivate };

/// Replaces a local file in one step: a reader sees the old content or the new one, and a failure
/// leaves the old one. A file that exists keeps its mode, a link to it stays one. `nativeFile` is a
/// path of the platform's. Raises 57, 61, 70, 75 or 76.
void replaceFile(const std::string& nativeFile, std::string_view content,
                 NewFileMode mode = NewFileMode::kDefault);

}  // namespace dg
