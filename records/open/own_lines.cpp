#include "records/open/own_lines.h"

#include "platform/values/checked.h"
#include "records/file_names.h"
#include "records/index_walk.h"
#include "records/read.h"

namespace dg {

void forEachOwnLine(const std::function<void(std::int32_t number, const clsLines& line)>& visit) {
  clsLines line;
  // Only 0 ends the list: of a negative pointer the magnitude counts.
  for (IndexWalk walk(files::kLineIndex, integerKey('C', 0)); walk.record() != 0; walk.next()) {
    const std::int32_t number = walk.keyField('C', 1);
    if (number >= kFirstForeignLine) break;
    line.Unpack(readRecord(files::kLines, checkedAbs(walk.record())));
    visit(number, line);
  }
}

void forEachListedLine(
    const std::function<void(const clsLines& line, const std::string& record)>& visit) {
  clsLines line;
  for (IndexWalk walk(files::kLineIndex, integerKey('C', 1));
       !walk.atEnd() && walk.keyField('C', 1) < kFirstForeignLine; walk.next()) {
    const std::string record = readRecord(files::kLines, walk.record());
    line.Unpack(record);
    visit(line, record);
  }
}

}  // namespace dg
