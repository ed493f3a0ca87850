// Profile files and the account lists in them, of any bytes.

#include "fuzz/fuzz_input.h"
#include "platform/ini_file.h"
#include "platform/values/run_time_error.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  dg::fuzz::FuzzInput input(data, size);
  const std::string section(input.bytes(input.number(1) % 16));
  const std::string key(input.bytes(input.number(1) % 16));
  const std::string value(input.bytes(input.number(1) % 32));
  const std::string content(input.rest());
  dg::iniValue(content, section, key);
  try {
    const std::string changed = dg::withIniValue(content, section, key, value);
    // What was stored is what a later start reads, but for blanks and quotes around it.
    if (!dg::iniValue(changed, section, key)) __builtin_trap();
  } catch (const dg::RunTimeError&) {  // NOLINT(bugprone-empty-catch): names that no file can hold
  }
  return 0;
}
