#pragma once

#include <ostream>

#include "export/workbook.h"
#include "forms/form.h"

namespace dg {

/// Adds a sheet with a form's labels where they stand, figures as numbers; for a form that is all
/// labels, such as the recap.
void addFormSheet(Workbook& book, const Form& form);

/// Writes the same as CSV in UTF-8, a line for each row of the form's sheet.
void writeFormCsv(std::ostream& out, const Form& form);

}  // namespace dg
