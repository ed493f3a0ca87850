#include "records/record_table.h"

#include <algorithm>

namespace dg {

void putTextField(std::string& record, int position, int width, std::string_view text, char fill) {
  const auto start = static_cast<std::size_t>(position) - 1;
  if (position < 1 || start >= record.size()) throw RunTimeError(kInvalidProcedureCall);
  std::string field(text.substr(0, static_cast<std::size_t>(width)));
  field.resize(static_cast<std::size_t>(width), fill);
  const std::size_t count = std::min(field.size(), record.size() - start);
  record.replace(start, count, field, 0, count);
}

}  // namespace dg
