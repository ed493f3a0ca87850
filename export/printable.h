#pragma once

#include <string>
#include <string_view>

namespace dg {

/// Record bytes with every control character replaced by a blank, as bytes of the code page. Also
/// those that Windows-1252 leaves undefined: a terminal takes them for controls.
std::string printableBytes(std::string_view bytes);

/// The same as UTF-8: what may go to a terminal or into a file.
std::string terminalText(std::string_view bytes);

}  // namespace dg
