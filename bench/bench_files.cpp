#include "bench/bench_files.h"

#include <fstream>
#include <random>

#include "engine/open_file.h"
#include "platform/file.h"

namespace dg::bench {

BenchFolder::BenchFolder()
    : path_(std::filesystem::temp_directory_path() /
            ("dg_bench-" + std::to_string(std::random_device{}()))) {
  std::filesystem::create_directories(path_);
}

BenchFolder::~BenchFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

void BenchFolder::write(const std::string& name, const std::string& content) const {
  std::ofstream(file(name), std::ios::binary) << content;
}

std::shared_ptr<cLogicalFile> openIndex(const std::string& path, int lastBlock) {
  auto physical = std::make_shared<cOpenFile>();
  physical->vbFileNumber = FreeFile();
  physical->Path = path;
  openNumbered(physical->vbFileNumber, path, FileAccess::kRead);
  auto index = std::make_shared<cLogicalFile>();
  index->FileName = "BENCHI";
  index->FileType = "I";
  index->OpenFile = std::move(physical);
  index->RecordLength = kBlockSize;
  index->LastRecord = lastBlock;
  return index;
}

}  // namespace dg::bench
