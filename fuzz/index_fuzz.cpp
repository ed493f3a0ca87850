// Look-ups and walks over an index of any bytes.

#include "engine/business_basic.h"
#include "engine/state.h"
#include "fuzz/fuzz_input.h"
#include "fuzz/fuzz_store.h"

namespace {

/// Walks long enough to come through every leaf of an index of this size, then stops.
constexpr int kSteps = 4096;
constexpr std::int32_t kLastBlock = 64;

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  dg::fuzz::FuzzInput input(data, size);
  const std::string wanted(input.bytes(input.number(1) % 20));
  dg::fuzz::FuzzStore store;
  const std::string directory = dg::fuzz::directoryEntry("LINEI", 'I', dg::kBlockSize, kLastBlock);
  if (!store.openEngine(dg::fuzz::storeOf(directory, input.rest()))) return 0;
  const dg::cBusinessBasic& engine = dg::sharedEngine();
  bool orb = false;
  for (const bool forwards : {true, false}) {
    try {
      std::string cursor;
      std::string key = wanted;
      std::int32_t record = 0;
      engine.KFind("LINEI", cursor, key, record, orb);
      for (int step = 0; step < kSteps && record != 0; ++step) {
        if (forwards) {
          engine.KNext("LINEI", cursor, key, record, orb);
        } else {
          engine.KPrev("LINEI", cursor, key, record, orb);
        }
      }
    } catch (const dg::RunTimeError&) {  // NOLINT(bugprone-empty-catch): errors are answers here
    }
  }
  try {
    std::string cursor;
    std::string key;
    std::int32_t record = 0;
    engine.KLast("LINEI", cursor, key, record, orb);
    engine.KPrev("LINEI", cursor, key, record, orb);
    engine.KCount("LINEI", orb);
  } catch (const dg::RunTimeError&) {  // NOLINT(bugprone-empty-catch): errors are answers here
  }
  return 0;
}
