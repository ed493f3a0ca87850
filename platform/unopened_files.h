#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace dg {

class RunTimeError;

/// Files that are there and could not be opened since the last load or refresh began: no
/// permission, no descriptors left, a line that broke. The program takes them for missing ones, as
/// it always has, and their figures are left out of its totals; so they are counted and named.
struct UnopenedFiles {
  static constexpr std::size_t kMostNames = 10;

  std::size_t count = 0;
  std::vector<std::string> names;  ///< without folders, in the order of failing, the first ten
};

const UnopenedFiles& unopenedFiles();
/// What a reader is told of them: a line without its end, empty when there are none.
std::string unopenedWarning();
/// Notes a file that could not be opened, once; one that is simply missing is not noted.
void noteUnopened(const std::string& path, const RunTimeError& error);
/// At the beginning of a load or refresh.
void forgetUnopenedFiles();

}  // namespace dg
