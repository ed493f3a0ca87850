// A whole load with detail windows and a refresh, over an example store in which any bytes of
// any files were overwritten or cut off.

#include "fuzz/fuzz_input.h"
#include "fuzz/fuzz_store.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  dg::fuzz::FuzzInput input(data, size);
  std::vector<dg::SampleFile> files = dg::fuzz::baseStore();
  while (!input.empty()) {
    std::string& content = files[input.number(1) % files.size()].content;
    const std::uint32_t offset = input.number(3);
    const std::uint32_t count = input.number(1);
    if (content.empty()) continue;
    if (count == 0) {
      content.resize(offset % content.size());
      continue;
    }
    const std::string_view bytes = input.bytes(count);
    for (std::size_t i = 0; i < bytes.size(); ++i) {
      content[(offset + i) % content.size()] = bytes[i];
    }
  }
  dg::fuzz::FuzzStore store;
  store.loadWithDetails(std::move(files));
  return 0;
}
