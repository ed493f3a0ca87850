#include "fuzz/fuzz_store.h"

#include <algorithm>
#include <utility>

#include "engine/codec.h"
#include "engine/state.h"
#include "platform/environment.h"
#include "shell/main.h"
#include "shell/write_log.h"
#include "tools/dgtool/detail_recorder.h"
#include "tools/sample/store_layout.h"
#include "views/view_catalogue.h"

namespace dg::fuzz {

namespace {

/// Rows of each grid that are clicked: a fuzzer gets further by more stores than by more rows.
constexpr int kMostRows = 4;

/// Looks at every window and keeps nothing.
class QuietVisitor final : public DetailVisitor {
 public:
  void enter(const Form&, const std::string&, int) override {}
  void leave() override {}
};

SampleFile* findFile(std::vector<SampleFile>& files, std::string_view end) {
  const auto found = std::find_if(files.begin(), files.end(), [end](const SampleFile& file) {
    return file.path.ends_with(end);
  });
  return found == files.end() ? nullptr : &*found;
}

std::string paddedLink(const std::string& link, const std::string& resolution) {
  std::string entry(160, '\0');
  entry.replace(1, link.size(), link);
  entry.replace(81, resolution.size(), resolution);
  return entry;
}

}  // namespace

const std::vector<SampleFile>& baseStore() {
  static const std::vector<SampleFile> files = composeSampleStore(SampleOptions{});
  return files;
}

std::vector<SampleFile> smallStore(std::initializer_list<std::string_view> ends) {
  std::vector<SampleFile> files;
  const auto take = [&files](std::string_view end) {
    for (const SampleFile& file : baseStore()) {
      if (file.path.ends_with(end)) files.push_back(file);
    }
  };
  for (const std::string_view end : {"/cQTCatalog.ini", "/ttymap", "/LINKSFILE"})
    take(end);
  for (const std::string_view end : ends)
    take(end);
  return files;
}

FuzzStore::FuzzStore() {
  setLogEnabled(false);
  environment().computerName = "127.0.0.1";  // needs no look-up, which would take most of a run
}

bool FuzzStore::openEngine(std::vector<SampleFile> files) {
  try {
    run_.openEngine(std::move(files));
  } catch (const RunTimeError&) {
    return false;  // the catalog file's own error, which the main window's load traps
  }
  return SharedEngine != nullptr;
}

void FuzzStore::loadWithDetails(std::vector<SampleFile> files) {
  run_.openStore(std::move(files));
  const auto window = startProgram(viewCatalogue());
  QuietVisitor visitor;
  DetailRecorder recorder(visitor, kMostRows);
  for (View* view : window->loadedViews())
    recorder.clickThrough(*view);
  window->ReLoadBm();
  window->Form_Unload();
}

std::string directoryEntry(std::string_view name, char type, std::int32_t recordLength,
                           std::int32_t lastRecord) {
  std::string entry(name);
  entry.resize(32, '\0');
  Pack('C', entry, recordLength, 14);
  entry[15] = type;
  Pack('L', entry, lastRecord, 17);
  return entry;
}

std::vector<SampleFile> storeOf(std::string_view directory, std::string_view data) {
  std::vector<SampleFile> files = smallStore({});
  std::string links;
  for (const sample::FileLayout& layout : sample::kFileLayouts) {
    links += paddedLink(":LNK001:" + std::string(layout.name), "LNK001:FUZZLK");
  }
  findFile(files, "/LINKSFILE")->content = links;
  const std::string folder = "share/SRV1/VLMRLNK/LNK001/";
  files.push_back({folder + "FUZZLK", std::string(directory)});
  files.push_back({folder + "FUZZDB", std::string(data)});
  return files;
}

}  // namespace dg::fuzz
