// The recap on paper.

#include "desktop/recap/recap_rows.h"
#include "desktop/recap/recap_view.h"
#include "desktop/window/text.h"

namespace dg {

namespace {

QString caption(const Form& form, const std::string& name) {
  const auto* label = dynamic_cast<const Label*>(form.find(name));
  return label == nullptr ? QString() : labelText(label->caption()).trimmed();
}

PrintTable listTable(const Form& form, int heading, const QList<QPair<int, int>>& rows) {
  PrintTable table;
  table.columns = {{caption(form, elementName("Label2", heading)), {}, false}, {{}, {}, true}};
  table.rows = static_cast<int>(rows.size());
  table.cell = [&form, rows](int row, int column) {
    return column == 0 ? caption(form, elementName("Label1", rows[row].first))
                       : caption(form, elementName("lblRecap", rows[row].second));
  };
  return table;
}

PrintTable profitTable(const Form& form) {
  PrintTable table;
  table.columns = {{caption(form, elementName("Label2", kProfitHeading)), {}, false}};
  for (const int column : kProfitColumnCaptions) {
    table.columns.append({caption(form, elementName("Label1", column)), {}, true});
  }
  table.rows = kProfitRows;
  table.cell = [&form](int row, int column) {
    return column == 0 ? caption(form, elementName("Label1", kProfitRowCaptions[row]))
                       : caption(form, elementName("lblRecap", profitLabel(row, column - 1)));
  };
  return table;
}

}  // namespace

PrintDocument recapDocument(const Form& form) {
  return newPrintDocument(
      caption(form, "lblTitle"), caption(form, "lblcompiledate"),
      {listTable(form, kAssetHeading, recapAssets()),
       listTable(form, kLiabilityHeading, recapLiabilities()), profitTable(form)});
}

}  // namespace dg
