#pragma once

#include <string>
#include <vector>

namespace dg {

/// A sheet name for `title`, none of whose texts and places the format forbids, and unlike all
/// `taken`, to which it is added. Up to 31 characters; bytes of the code page.
std::string sheetName(const std::string& title, std::vector<std::string>& taken);

}  // namespace dg
