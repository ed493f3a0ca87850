// Fields, packed text, dates, masks and conversions on any bytes.

#include "engine/codec.h"
#include "engine/text_utilities.h"
#include "fuzz/fuzz_input.h"
#include "platform/values/convert.h"
#include "platform/values/format.h"
#include "platform/values/run_time_error.h"

namespace {

template <class Body>
void guarded(Body&& body) {
  try {
    body();
  } catch (const dg::RunTimeError&) {  // NOLINT(bugprone-empty-catch): errors are answers here
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  dg::fuzz::FuzzInput input(data, size);
  std::string opcode(input.bytes(1));
  const std::int32_t position = input.signedNumber();
  const std::int32_t value = input.signedNumber();
  const std::string mask(input.bytes(input.number(1) % 24));
  const std::string head(input.bytes(4));
  std::string text(input.rest());

  guarded([&] { dg::Unpack(opcode, text, position); });
  guarded([&] { dg::UnPackDate(opcode, text, position); });
  guarded([&] { dg::Pack(opcode, text, value, position); });
  guarded([&] { dg::PackDate(opcode, text, position, dg::Date(value % 60000)); });
  dg::setMaskHead(head);
  const std::string decoded = dg::unpackText(text);
  if (dg::packText(decoded).size() != (decoded.size() + 2) / 3 * 2) __builtin_trap();
  dg::setMaskHead(" ,/.");

  guarded([&] { dg::Format(value, mask); });
  guarded([&] { dg::Format(dg::Currency::fromScaled(value, 100), mask); });
  guarded([&] { dg::Format(static_cast<double>(value) / 7, mask); });
  guarded([&] { dg::CLng(std::string_view(text)); });
  dg::Val(text);
  dg::Date::parse(text);
  std::string address = decoded;
  dg::AddressState(address);
  dg::AddressZip(address);
  std::string part = decoded;
  dg::InsertDashes(part, mask);
  std::string dashes;
  dg::StripDashes(part, dashes);
  return 0;
}
