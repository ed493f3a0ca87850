#include "tools/dgtool/window_json.h"

#include "platform/text.h"

namespace dg {

namespace {

Json gridJson(const Grid& grid) {
  Json columns = Json::array();
  for (const Grid::Column& column : grid.columns()) {
    columns.push_back({{"name", jsonText(column.name)},
                       {"caption", jsonText(column.caption)},
                       {"hidden", column.hidden}});
  }
  Json rows = Json::array();
  for (const Grid::Row& row : grid.rows()) {
    Json cells = Json::array();
    for (const std::string& cell : row)
      cells.push_back(jsonText(cell));
    rows.push_back(std::move(cells));
  }
  return {{"columns", std::move(columns)}, {"rows", std::move(rows)}};
}

/// Writes a document with all control characters as escapes. nlohmann escapes those below 32; those
/// from 127 to 159 are legal in JSON but not harmless on a terminal. They can stand inside texts
/// only.
void writeEscaped(std::ostream& out, std::string_view document) {
  constexpr char kHex[] = "0123456789abcdef";
  std::size_t written = 0;
  for (std::size_t i = 0; i < document.size(); ++i) {
    const auto byte = static_cast<unsigned char>(document[i]);
    if (byte != 0x7F && byte != 0xC2) continue;
    std::size_t length = 1;
    unsigned char control = byte;
    if (byte == 0xC2 && i + 1 < document.size()) {
      control = static_cast<unsigned char>(document[i + 1]);
      length = 2;
    }
    if (control < 0x7F || control > 0x9F) continue;
    out << document.substr(written, i - written) << "\\u00" << kHex[control >> 4]
        << kHex[control & 15];
    i += length - 1;
    written = i + 1;
  }
  out << document.substr(written);
}

}  // namespace

Json jsonText(std::string_view bytes) {
  return utf8FromBytes(bytes);
}

Json windowJson(const Form& form) {
  Json labels = Json::object();
  Json hidden = Json::array();
  Json combos = Json::object();
  Json grids = Json::object();
  for (const auto& control : form.controls()) {
    if (!control->visible()) hidden.push_back(jsonText(control->name()));
    if (const auto* label = dynamic_cast<const Label*>(control.get())) {
      labels[label->name()] = jsonText(label->caption());
    } else if (const auto* grid = dynamic_cast<const Grid*>(control.get())) {
      grids[grid->name()] = gridJson(*grid);
    } else if (const auto* combo = dynamic_cast<const ComboBox*>(control.get())) {
      Json items = Json::array();
      for (const std::string& item : combo->items())
        items.push_back(jsonText(item));
      combos[combo->name()] = std::move(items);
    }
  }
  Json window = {{"name", jsonText(form.name())}, {"caption", jsonText(form.caption())}};
  window["labels"] = std::move(labels);
  window["hidden"] = std::move(hidden);
  window["combos"] = std::move(combos);
  window["grids"] = std::move(grids);
  if (form.incomplete()) window["incomplete"] = true;
  return window;
}

void writeJson(std::ostream& out, const Json& document) {
  constexpr int kIndent = 2;
  writeEscaped(out, document.dump(kIndent, ' ', false, Json::error_handler_t::replace));
  out << '\n';
}

}  // namespace dg
