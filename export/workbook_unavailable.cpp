// Stands in for workbook.cpp in builds that have no library for workbooks.

#include "export/workbook.h"

namespace dg {

class Workbook::Writer {};

Workbook::Workbook() {
  throw ExportError("this build writes no workbooks");
}

Workbook::~Workbook() = default;

void Workbook::setTitle(std::string_view) {}
void Workbook::addGrid(const std::string&, const Grid&, std::span<const int>,
                       std::span<const std::string>, std::span<const std::string>) {}
void Workbook::addSheet(const std::string&) {}
void Workbook::text(std::size_t, std::size_t, std::string_view, CellLook) {}
void Workbook::number(std::size_t, std::size_t, double, const std::string&) {}
void Workbook::fitColumn(std::size_t, std::size_t) {}
std::string Workbook::finish() {
  return {};
}

}  // namespace dg
