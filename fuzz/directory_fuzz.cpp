// Link tables, terminal tables and directories of any bytes: whatever they name must be refused or
// read, and never lead out of the store.

#include "engine/business_basic.h"
#include "engine/state.h"
#include "fuzz/fuzz_input.h"
#include "fuzz/fuzz_store.h"
#include "records/file_names.h"

namespace {

void replaceFile(std::vector<dg::SampleFile>& files, std::string_view end,
                 std::string_view content) {
  for (dg::SampleFile& file : files) {
    if (file.path.ends_with(end)) file.content = content;
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  dg::fuzz::FuzzInput input(data, size);
  std::vector<dg::SampleFile> files = dg::fuzz::smallStore({"/PARTLK", "/PARTDB"});
  replaceFile(files, "/ttymap", input.block());
  replaceFile(files, "/LINKSFILE", input.block());
  replaceFile(files, "/PARTLK", input.rest());
  dg::fuzz::FuzzStore store;
  if (!store.openEngine(std::move(files))) return 0;
  for (const char* name : {dg::files::kLines, dg::files::kParts, dg::files::kLineIndex}) {
    try {
      bool orb = false;
      const auto file = dg::sharedEngine().LogicalOpen(name);
      if (!file) continue;
      dg::sharedEngine().LreadFile(file, file->LastRecord, orb);
      file->HighUsedRecord(orb);
      file->ActiveCount(orb);
    } catch (const dg::RunTimeError&) {  // NOLINT(bugprone-empty-catch): errors are answers here
    }
  }
  return 0;
}
