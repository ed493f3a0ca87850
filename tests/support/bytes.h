#pragma once

#include <initializer_list>
#include <string>

namespace dg::test {

/// A byte string from numbers, for records with bytes that no literal shows well.
inline std::string bytes(std::initializer_list<int> values) {
  std::string text;
  for (const int value : values)
    text.push_back(static_cast<char>(value));
  return text;
}

}  // namespace dg::test
