#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>

namespace dg {

/// A file that cannot be written; the text is UTF-8.
class ExportError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// A file beside the wanted one that takes its place when it is complete, and goes if it never is.
class Replacement {
 public:
  explicit Replacement(const std::filesystem::path& file);
  ~Replacement();
  Replacement(const Replacement&) = delete;
  Replacement& operator=(const Replacement&) = delete;

  /// Where to write.
  const std::filesystem::path& temporary() const { return temporary_; }
  /// Puts what was written in the file's place. Raises ExportError.
  void commit() const;

 private:
  std::filesystem::path file_;
  std::filesystem::path temporary_;
};

}  // namespace dg
