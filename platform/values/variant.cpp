#include "platform/values/variant.h"

#include "platform/values/convert.h"

namespace dg {

namespace {

std::string plainText(std::monostate) {
  return {};
}
std::string plainText(std::int32_t value) {
  return std::to_string(value);
}
std::string plainText(double value) {
  return numberText(value);
}
std::string plainText(Currency value) {
  return value.text();
}
std::string plainText(Date value) {
  return value.text();
}
std::string plainText(const std::string& value) {
  return value;
}

}  // namespace

std::string toText(const Variant& value) {
  return std::visit([](const auto& held) { return plainText(held); }, value);
}

}  // namespace dg
