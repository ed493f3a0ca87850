#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "platform/file.h"
#include "platform/values/run_time_error.h"

namespace dg::test {

/// Passes everything on to another file system and asks before each call, over all files: what the
/// question raises becomes of the call.
class AskedFileSystem final : public FileSystem {
 public:
  enum class Call { kOpen, kLook, kRead, kSize };
  using Ask = std::function<void(Call)>;

  AskedFileSystem(std::unique_ptr<FileSystem> inner, Ask ask)
      : owned_(std::move(inner)), inner_(*owned_), ask_(std::move(ask)) {}
  /// Over a file system that somebody else owns, such as the operating system's.
  AskedFileSystem(FileSystem& inner, Ask ask) : inner_(inner), ask_(std::move(ask)) {}

  std::unique_ptr<File> open(const std::string& path, FileAccess access) override {
    ask_(Call::kOpen);
    return std::make_unique<AskedFile>(inner_.open(path, access), ask_);
  }
  bool fileExists(const std::string& path) override {
    ask_(Call::kLook);
    return inner_.fileExists(path);
  }
  bool directoryExists(const std::string& path) override {
    ask_(Call::kLook);
    return inner_.directoryExists(path);
  }

 private:
  class AskedFile final : public File {
   public:
    AskedFile(std::unique_ptr<File> inner, Ask ask)
        : inner_(std::move(inner)), ask_(std::move(ask)) {}
    std::size_t read(std::int64_t offset, char* buffer, std::size_t count) override {
      ask_(Call::kRead);
      return inner_->read(offset, buffer, count);
    }
    void write(std::int64_t offset, std::string_view data) override { inner_->write(offset, data); }
    std::int64_t size() override {
      ask_(Call::kSize);
      return inner_->size();
    }

   private:
    std::unique_ptr<File> inner_;
    Ask ask_;
  };

  std::unique_ptr<FileSystem> owned_;
  FileSystem& inner_;
  Ask ask_;
};

/// Fails one read as a broken line to the share does, after so many that succeed; and every later
/// one, too, if that is wanted.
inline std::unique_ptr<FileSystem> failingAfter(std::uint64_t reads, bool forEver,
                                                std::unique_ptr<FileSystem> inner) {
  const auto ask = [=, seen = std::make_shared<std::uint64_t>(0)](AskedFileSystem::Call call) {
    if (call != AskedFileSystem::Call::kRead) return;
    const std::uint64_t before = (*seen)++;
    if (forEver ? before >= reads : before == reads) throw RunTimeError(kDeviceIoError);
  };
  return std::make_unique<AskedFileSystem>(std::move(inner), ask);
}

}  // namespace dg::test
