#pragma once

#include <QString>

namespace dg {

class Form;
class GridModel;

/// Writes the rows on show of a grid to a file, an Excel workbook where its ending is "xlsx", else
/// CSV. The file is complete or not there. Returns what went wrong, empty when nothing did.
QString exportGrid(const GridModel& model, const Form& form, const QString& title,
                   const QString& file);

}  // namespace dg
