#pragma once

#include <memory>
#include <string>

#include "engine/business_basic.h"
#include "engine/catalog_configuration.h"
#include "engine/state.h"
#include "platform/environment.h"
#include "platform/file.h"
#include "tools/sample/sample_store.h"

namespace dg::test {

/// An example store on a share in memory, open with the shared engine as its workstation would have
/// it. The end puts the process's surroundings back.
class SampleInMemory {
 public:
  explicit SampleInMemory(const SampleOptions& options) : formerEnvironment_(environment()) {
    environment().temp = "\\\\local\\temp";
    environment().computerName = "PC7";
    auto files = std::make_unique<MemoryFileSystem>();
    for (SampleFile& file : composeSampleStore(options))
      files->add(programPath(file.path), std::move(file.content));
    formerFiles_ = setFileSystem(std::move(files));
    ReadCatalogConfiguration();
  }
  ~SampleInMemory() {
    resetEngineState();
    setFileSystem(std::move(formerFiles_));
    environment() = formerEnvironment_;
  }
  SampleInMemory(const SampleInMemory&) = delete;
  SampleInMemory& operator=(const SampleInMemory&) = delete;

  cBusinessBasic& engine() { return sharedEngine(); }

 private:
  /// The path by which the program asks for a file of the store.
  static std::string programPath(const std::string& path) {
    std::string result = path;
    for (char& c : result) {
      if (c == '/') c = '\\';
    }
    const std::string share = "share\\";
    if (result.compare(0, share.size(), share) == 0) return "\\\\" + result.substr(share.size());
    return "\\\\local\\" + result;
  }

  Environment formerEnvironment_;
  std::unique_ptr<FileSystem> formerFiles_;
};

}  // namespace dg::test
