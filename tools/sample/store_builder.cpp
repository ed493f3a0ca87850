#include "tools/sample/store_builder.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "platform/ini_file.h"
#include "platform/values/run_time_error.h"
#include "tools/sample/data_file.h"
#include "tools/sample/link_table.h"
#include "tools/sample/workstation_files.h"

namespace dg::sample {

namespace {

std::string linkShare() {
  return "share/" + std::string(kServer) + "/VLMRLNK/";
}

std::string inDirectory(std::string_view directory, std::string_view name) {
  return linkShare() + std::string(directory) + "/" + std::string(name);
}

/// The directory file of a data file as the link table names it.
std::string resolution(std::string_view directory, std::string_view dataFile) {
  return std::string(directory) + ":" + std::string(dataFile) + "LK";
}

}  // namespace

struct StoreBuilder::LogicalFile {
  const FileLayout* layout;
  std::unique_ptr<RecordFile> records;  // type "L"
  std::unique_ptr<IndexFile> index;     // type "I"

  const LogicalSource& source() const {
    if (records) return *records;
    return *index;
  }
};

StoreBuilder::StoreBuilder(const SampleOptions& options) {
  for (const FileLayout& layout : kFileLayouts) {
    LogicalFile file{.layout = &layout, .records = nullptr, .index = nullptr};
    if (layout.type == 'L') {
      file.records = std::make_unique<RecordFile>(layout.length);
    } else {
      file.index =
          std::make_unique<IndexFile>(layout.length, layout.duplicateKeys, options.indexFill,
                                      Random(options.seed, layout.name));
    }
    logicalFiles_.push_back(std::move(file));
  }
}

StoreBuilder::~StoreBuilder() = default;

StoreBuilder::LogicalFile& StoreBuilder::find(std::string_view name, char type) {
  for (LogicalFile& file : logicalFiles_) {
    if (file.layout->name == name && file.layout->type == type) return file;
  }
  throw RunTimeError(kInvalidProcedureCall);
}

RecordFile& StoreBuilder::records(std::string_view name) {
  return *find(name, 'L').records;
}

IndexFile& StoreBuilder::index(std::string_view name) {
  return *find(name, 'I').index;
}

void StoreBuilder::addFile(std::string_view name, std::string content) {
  plainFiles_.push_back({std::string(name), std::move(content)});
}

void StoreBuilder::saveSetting(std::string_view section, std::string_view key,
                               std::string_view value) {
  settings_ = withIniValue(settings_, section, key, value);
}

void StoreBuilder::addDataFiles(std::vector<SampleFile>& files, std::string_view directory) {
  std::vector<std::string_view> stems;
  for (const LogicalFile& file : logicalFiles_) {
    if (std::find(stems.begin(), stems.end(), file.layout->dataFile) == stems.end())
      stems.push_back(file.layout->dataFile);
  }
  for (const std::string_view stem : stems) {
    DataFile dataFile;
    for (LogicalFile& file : logicalFiles_) {
      if (file.layout->dataFile != stem) continue;
      dataFile.add(file.layout->name, file.source().image());
      file.records.reset();
      file.index.reset();
    }
    files.push_back({inDirectory(directory, std::string(stem) + "LK"), dataFile.directory()});
    files.push_back({inDirectory(directory, std::string(stem) + "DB"), dataFile.takeData()});
  }
}

std::string StoreBuilder::links(const std::vector<OtherStore>& others) const {
  LinkTable table;
  const auto addStore = [&](std::string_view directory) {
    for (const LogicalFile& file : logicalFiles_)
      table.add(directory, file.layout->name, resolution(directory, file.layout->dataFile));
  };
  addStore(kDirectory);
  table.addUnused();
  // A repeated name leads nowhere: the first entry is the one that counts.
  table.add(kDirectory, logicalFiles_.front().layout->name, "LNK000:GONELK");
  for (const OtherStore& other : others)
    addStore(other.directory);
  // The last entry is that of another store on the same server, whose directory is not there.
  if (others.empty()) table.add("LNK002", "LINEL", "LNK002:PARTLK");
  return table.bytes();
}

std::vector<SampleFile> StoreBuilder::finishOther(std::string_view directory) {
  std::vector<SampleFile> files;
  files.push_back({inDirectory(directory, "FILE0"), controlFile_.bytes()});
  addDataFiles(files, directory);
  for (SampleFile& file : plainFiles_)
    files.push_back({inDirectory(directory, file.path), std::move(file.content)});
  plainFiles_.clear();
  return files;
}

std::vector<SampleFile> StoreBuilder::finish(std::vector<OtherStore> others) {
  std::vector<SampleFile> files;
  files.push_back({linkShare() + "LINKSFILE", links(others)});
  files.push_back({linkShare() + "ttymap", terminalTable()});
  std::ranges::move(finishOther(kDirectory), std::back_inserter(files));
  for (OtherStore& other : others)
    std::ranges::move(other.files, std::back_inserter(files));
  files.push_back({"temp/cQTCatalog.ini", catalogSettings()});
  files.push_back({"config/DealerGauge.ini", settings_});
  return files;
}

}  // namespace dg::sample
