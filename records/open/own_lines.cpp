#include "records/open/own_lines.h"

#include "engine/business_basic.h"
#include "engine/state.h"
#include "platform/values/checked.h"
#include "records/file_names.h"
#include "records/index_walk.h"

namespace dg {

void forEachOwnLine(const std::function<void(std::int32_t number, const clsLines& line)>& visit) {
  clsLines line;
  // Only 0 ends the list: of a negative pointer the magnitude counts.
  for (IndexWalk walk(files::kLineIndex, integerKey('C', 0)); walk.record() != 0; walk.next()) {
    const std::int32_t number = walk.keyField('C', 1);
    if (number >= kFirstForeignLine) break;
    bool orb = true;
    line.Unpack(sharedEngine().LreadFile(files::kLines, checkedAbs(walk.record()), orb));
    visit(number, line);
  }
}

}  // namespace dg
