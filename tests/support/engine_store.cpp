#include "tests/support/engine_store.h"

#include <stdexcept>

#include "engine/codec.h"
#include "engine/state.h"

namespace dg::test {

std::string linkEntry(const std::string& link, const std::string& resolution) {
  std::string entry(160, '\0');
  entry.replace(1, link.size(), link);
  entry.replace(81, resolution.size(), resolution);
  return entry;
}

std::string directoryEntry(const std::string& name, std::int32_t block, std::int32_t recordLength,
                           char type, std::int32_t lastRecord) {
  std::string entry(32, '\0');
  entry.replace(0, name.size(), name);
  Pack('D', entry, block, 11);
  Pack('C', entry, recordLength, 14);
  entry[15] = type;
  Pack('L', entry, lastRecord, 17);
  return entry;
}

EngineStore::EngineStore() : files_(new MemoryFileSystem) {
  surroundings_.useFileSystem(std::unique_ptr<FileSystem>(files_));
  surroundings_.useMessageBoxes([this](const MessageBox& box) { messages_.push_back(box); });
  surroundings_.useTemp("C:\\Temp");
  environment().computerName = "PC7";
  SystemInfo = std::make_shared<cSystem>();
  SystemInfo->mUNCDrive = "srv";
  SystemInfo->mDirectory = "LNK001";
  files_->add(onShare("ttymap"), "PC7 12\r\n");
}

void EngineStore::addLink(const std::string& link, const std::string& resolution) {
  links_ += linkEntry(link, resolution);
}

void EngineStore::place(const std::string& name, char type, std::int32_t recordLength,
                        std::int32_t lastRecord, const std::string& content) {
  const auto block = static_cast<std::int32_t>(data_.size() / kBlockSize);
  placed_.push_back({name, block});
  directory_ += directoryEntry(name, block, recordLength, type, lastRecord);
  data_ += content;
  data_.resize((data_.size() + kBlockSize - 1) / kBlockSize * kBlockSize, '\0');
  addLink(":LNK001:" + name, "LNK001:DATALK");
}

std::string EngineStore::dataFile() {
  return readWhole(inStore("DATADB"));
}

std::string EngineStore::readWhole(const std::string& path) {
  const auto file = files_->open(path, FileAccess::kRead);
  std::string content(static_cast<std::size_t>(file->size()), '\0');
  file->read(0, content.data(), content.size());
  return content;
}

std::int32_t EngineStore::startBlock(const std::string& name) const {
  for (const Placed& file : placed_) {
    if (file.name == name) return file.block;
  }
  throw std::out_of_range(name);
}

cBusinessBasic& EngineStore::engine() {
  if (!engine_) {
    if (!links_.empty()) files_->add(onShare("LINKSFILE"), links_);
    if (!placed_.empty()) {
      files_->add(inStore("DATALK"), directory_);
      files_->add(inStore("DATADB"), data_);
    }
    engine_ = std::make_unique<cBusinessBasic>();
  }
  return *engine_;
}

}  // namespace dg::test
