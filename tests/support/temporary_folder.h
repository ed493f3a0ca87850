#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

namespace dg {

/// A folder of a test's own, removed with all that is in it at the test's end.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    static const unsigned process = std::random_device()();
    static int count = 0;
    path_ = std::filesystem::temp_directory_path() /
            ("dg_tests-" + std::to_string(process) + "-" + std::to_string(++count));
    std::filesystem::create_directories(path_);
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::filesystem::path& path() const { return path_; }
  std::string file(const std::string& name) const { return (path_ / name).string(); }
  bool has(const std::string& name) const { return std::filesystem::exists(path_ / name); }

  /// The bytes of a file in it; empty when there is none.
  std::string read(const std::string& name) const {
    std::ifstream stream(path_ / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
  }
  /// Writes a file, with the folders on the way to it; returns its path.
  std::string write(const std::string& name, const std::string& content) const {
    std::filesystem::create_directories((path_ / name).parent_path());
    std::ofstream(path_ / name, std::ios::binary) << content;
    return file(name);
  }
  /// The names in it, or in a folder below it, sorted.
  std::vector<std::string> names(const std::string& folder = ".") const {
    std::vector<std::string> found;
    for (const auto& entry : std::filesystem::directory_iterator(path_ / folder)) {
      found.push_back(entry.path().filename().string());
    }
    std::sort(found.begin(), found.end());
    return found;
  }

 private:
  std::filesystem::path path_;
};

}  // namespace dg
