#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "tools/sample/control_file.h"
#include "tools/sample/index_file.h"
#include "tools/sample/record_file.h"
#include "tools/sample/sample_store.h"
#include "tools/sample/store_layout.h"

namespace dg::sample {

/// A store beside the first one on the same server.
struct OtherStore {
  std::string directory;
  std::vector<SampleFile> files;
};

/// An example store in the making: the families add records, keys and files to it, and finish()
/// turns all of it into the files of a store.
class StoreBuilder {
 public:
  explicit StoreBuilder(const SampleOptions& options);
  ~StoreBuilder();
  StoreBuilder(const StoreBuilder&) = delete;
  StoreBuilder& operator=(const StoreBuilder&) = delete;

  /// A logical file by its name in kFileLayouts; raises 5 for a name that is not there as such.
  RecordFile& records(std::string_view name);
  IndexFile& index(std::string_view name);
  /// A main file and its extension as one.
  ExtendedRecordFile extended(std::string_view main, std::string_view extension) {
    return {records(main), records(extension)};
  }
  ControlFile& controlFile() { return controlFile_; }
  /// Adds a plain file of the store directory, such as a document file.
  void addFile(std::string_view name, std::string content);
  /// Sets a per-user setting of the program.
  void saveSetting(std::string_view section, std::string_view key, std::string_view value);

  /// The store's files and those of its server and workstation, with what other builders gave. The
  /// builder is used up by it.
  std::vector<SampleFile> finish(std::vector<OtherStore> others = {});
  /// The files of a store beside the first one: its directory alone. The builder is used up by it.
  std::vector<SampleFile> finishOther(std::string_view directory);

 private:
  struct LogicalFile;

  LogicalFile& find(std::string_view name, char type);
  void addDataFiles(std::vector<SampleFile>& files, std::string_view directory);
  std::string links(const std::vector<OtherStore>& others) const;

  std::vector<LogicalFile> logicalFiles_;
  ControlFile controlFile_;
  std::vector<SampleFile> plainFiles_;
  std::string settings_;
};

}  // namespace dg::sample
