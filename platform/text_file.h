#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "platform/file.h"

namespace dg {

/// Reads a text file line by line. Lines end in CR LF, LF or CR; the ends are not part of a line.
/// The text is read in whole at creation and stays bytes. `path` is the program's own form.
class TextReader {
 public:
  /// Raises as FileSystem::open when the file cannot be opened, 57 when it cannot be read, 7 when
  /// it is longer than a text can be (2 GB).
  explicit TextReader(const std::string& path);
  /// The text of an open file, read from its start. Raises 57 and 7 as above.
  explicit TextReader(File& file);

  bool AtEndOfStream() const { return position_ >= content_.size(); }
  /// The next line; the last one needs no line end. Raises 62 at the end.
  std::string ReadLine();

 private:
  std::string content_;
  std::size_t position_ = 0;
};

/// Appends to a local text file, creating it when missing; opened and closed in this one call.
/// `path` is the program's own, with backslashes; one on the share is refused, and so is a link,
/// which might lead anywhere. Raises 57, 61, 70, 75 or 76.
void appendText(const std::string& path, std::string_view text);

/// The whole of a local or shared file. Raises as TextReader.
std::string readWholeFile(const std::string& path);

/// Who may read a file that did not exist before: those whom the user's defaults allow, or the
/// user.
enum class NewFileMode { kDefault, kPrivate };

/// Whether replaceFile may write there, asked before long work: raises 70 for a file that is
/// protected, or that lies on the share; 75 for a folder, a device or a pipe; 76 when there is no
/// such folder.
void checkReplaceable(const std::filesystem::path& file);

/// Whether a file, there or not, would lie on the share, by where it or its folder really is.
bool isOnShare(const std::filesystem::path& file);

/// Replaces a local file in one step: a reader sees the old content or the new one, and a failure
/// or an interruption leaves the old one and nothing beside it. A file that exists keeps its mode,
/// a link to it stays one. Raises 57, 61, 70, 75 or 76. Whatever this program writes for its user
/// goes through here.
void replaceFile(const std::filesystem::path& file, std::string_view content,
                 NewFileMode mode = NewFileMode::kDefault);

/// A path that was given as bytes of the platform: a command line's, an environment variable's.
std::filesystem::path pathFromBytes(const std::string& bytes);

}  // namespace dg
