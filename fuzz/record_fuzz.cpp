// Every record class on any bytes, and back into any bytes.

#include "fuzz/fuzz_input.h"
#include "records/file_names.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  dg::fuzz::FuzzInput input(data, size);
  const auto classes = dg::recordClasses();
  const auto& recordClass = classes[input.number(1) % classes.size()];
  const auto instance = recordClass.make();
  instance->Unpack(std::string(input.block()));
  std::string record(input.rest());
  // A second record into the same instance: members keep what it does not reach.
  instance->Unpack(record);
  instance->Pack(record);
  if (instance->members().empty()) __builtin_trap();
  return 0;
}
