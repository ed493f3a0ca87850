#include "tests/support/faulty_file_system.h"

#include <utility>

#include "platform/values/run_time_error.h"

namespace dg {

namespace {

class FaultyFile final : public File {
 public:
  FaultyFile(std::unique_ptr<File> inner, std::shared_ptr<FaultyFileSystem::State> state)
      : inner_(std::move(inner)), state_(std::move(state)) {}

  std::size_t read(std::int64_t offset, char* buffer, std::size_t count) override {
    const std::uint64_t before = state_->reads++;
    const bool fails = state_->forEver ? before >= state_->failing : before == state_->failing;
    if (fails) throw RunTimeError(kDeviceIoError);
    return inner_->read(offset, buffer, count);
  }
  void write(std::int64_t offset, std::string_view data) override { inner_->write(offset, data); }
  std::int64_t size() override { return inner_->size(); }

 private:
  std::unique_ptr<File> inner_;
  std::shared_ptr<FaultyFileSystem::State> state_;
};

}  // namespace

FaultyFileSystem::FaultyFileSystem(std::unique_ptr<FileSystem> inner) : inner_(std::move(inner)) {}

void FaultyFileSystem::failAfter(std::uint64_t reads, bool forEver) {
  state_->failing = state_->reads + reads;
  state_->forEver = forEver;
}

std::unique_ptr<File> FaultyFileSystem::open(const std::string& path, FileAccess access) {
  return std::make_unique<FaultyFile>(inner_->open(path, access), state_);
}

}  // namespace dg
