// The recap on paper.

#include <algorithm>

#include "desktop/recap/recap_view.h"
#include "desktop/window/text.h"
#include "shell/recap_figures.h"

namespace dg {

namespace {

QString caption(const Form& form, std::string_view name) {
  const auto* label = dynamic_cast<const Label*>(form.find(name));
  return label == nullptr ? QString() : labelText(label->caption()).trimmed();
}

QString heading(const Form& form, RecapBlock block) {
  return caption(form, recapHeading(block).label);
}

PrintTable listTable(const Form& form, RecapBlock block) {
  const std::span<const RecapFigure> figures = recapFigures(block);
  PrintTable table;
  table.columns = {{heading(form, block), {}, false}, {{}, {}, true}};
  table.rows = static_cast<int>(figures.size());
  table.cell = [&form, figures](int row, int column) {
    const RecapFigure& figure = figures[static_cast<std::size_t>(row)];
    return caption(form, column == 0 ? figure.caption : figure.label);
  };
  return table;
}

PrintTable profitTable(const Form& form) {
  const std::span<const RecapFigure> figures = recapFigures(RecapBlock::kProfit);
  PrintTable table;
  table.columns = {{heading(form, RecapBlock::kProfit), {}, false}};
  for (const RecapFigure& figure : figures.first(kProfitColumns)) {
    table.columns.append({caption(form, figure.head), {}, true});
  }
  table.rows = static_cast<int>(figures.size()) / kProfitColumns;
  table.cell = [&form, figures](int row, int column) {
    const int position = row * kProfitColumns + std::max(column - 1, 0);
    const RecapFigure& figure = figures[static_cast<std::size_t>(position)];
    return caption(form, column == 0 ? figure.caption : figure.label);
  };
  return table;
}

}  // namespace

PrintDocument recapDocument(const Form& form) {
  PrintDocument document =
      newPrintDocument(caption(form, "lblTitle"), caption(form, "lblcompiledate"),
                       {listTable(form, RecapBlock::kAssets),
                        listTable(form, RecapBlock::kLiabilities), profitTable(form)});
  document.fillsWidth = true;
  return document;
}

}  // namespace dg
