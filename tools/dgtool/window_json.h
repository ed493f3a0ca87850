#pragma once

#include <nlohmann/json.hpp>
#include <ostream>
#include <string>
#include <string_view>

#include "forms/form.h"

namespace dg {

/// Objects keep the order in which their members were added.
using Json = nlohmann::ordered_json;

/// Record bytes (Windows-1252) as a JSON text.
Json jsonText(std::string_view bytes);

/// A window as a report shows it: caption, labels, names of hidden controls, combo boxes, grids.
Json windowJson(const Form& form);

/// Writes a document and a line feed. Control characters appear as escapes only.
void writeJson(std::ostream& out, const Json& document);

}  // namespace dg
