// Decoding of whole records by their classes.

#include <benchmark/benchmark.h>
#include <string>

#include "records/file_names.h"
#include "tools/sample/random.h"

namespace dg::bench {

namespace {

constexpr int kRecordLength = 512;

/// Bytes of all values: more than any one record of the suite holds.
std::string mixedRecord() {
  sample::Random random(11, "record");
  std::string record(kRecordLength, '\0');
  for (char& byte : record)
    byte = static_cast<char>(random.between(0, 255));
  return record;
}

void unpackRecord(benchmark::State& state, const RecordClass& recordClass) {
  const std::unique_ptr<Record> instance = recordClass.make();
  const std::string record = mixedRecord();
  for (auto _ : state) {
    instance->Unpack(record);
    benchmark::ClobberMemory();
  }
  state.SetItemsProcessed(state.iterations());
}

const bool kRegistered = [] {
  for (const RecordClass& recordClass : recordClasses()) {
    benchmark::RegisterBenchmark(("Unpack/" + std::string(recordClass.name)).c_str(), unpackRecord,
                                 recordClass);
  }
  return true;
}();

}  // namespace

}  // namespace dg::bench
