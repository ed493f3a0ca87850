#include "tests/support/step_limit.h"

#include <utility>

namespace dg::test {

namespace {

class CountedFile final : public File {
 public:
  CountedFile(std::unique_ptr<File> inner, std::shared_ptr<StepLimitFileSystem::State> state)
      : inner_(std::move(inner)), state_(std::move(state)) {}

  std::size_t read(std::int64_t offset, char* buffer, std::size_t count) override {
    state_->step();
    return inner_->read(offset, buffer, count);
  }
  void write(std::int64_t offset, std::string_view data) override { inner_->write(offset, data); }
  std::int64_t size() override {
    state_->step();
    return inner_->size();
  }

 private:
  std::unique_ptr<File> inner_;
  std::shared_ptr<StepLimitFileSystem::State> state_;
};

}  // namespace

StepLimitFileSystem::StepLimitFileSystem(std::unique_ptr<FileSystem> inner)
    : owned_(std::move(inner)), inner_(*owned_) {}

StepLimitFileSystem::StepLimitFileSystem(FileSystem& inner) : inner_(inner) {}

std::unique_ptr<File> StepLimitFileSystem::open(const std::string& path, FileAccess access) {
  state_->step();
  return std::make_unique<CountedFile>(inner_.open(path, access), state_);
}

bool StepLimitFileSystem::fileExists(const std::string& path) {
  state_->step();
  return inner_.fileExists(path);
}

bool StepLimitFileSystem::directoryExists(const std::string& path) {
  state_->step();
  return inner_.directoryExists(path);
}

}  // namespace dg::test
