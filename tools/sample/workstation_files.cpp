#include "tools/sample/workstation_files.h"

#include "platform/text.h"
#include "tools/sample/store_layout.h"

namespace dg::sample {

std::string terminalTable() {
  std::string table =
      "# workstation terminal,printer remarks\r\n"
      "\r\n"
      "192.0.2.7 3,lp2\r\n"
      "PARTS1   44\r\n";
  // A line with no terminal says nothing, even of this workstation; names count in either case, and
  // the first line that has both is the one.
  table.append(kWorkstation).append("\r\n");
  table.append(lowerCase(kWorkstation)).append("   ").append(kTerminal).append(",lp1  counter\r\n");
  table.append(kWorkstation).append(" 99\r\n");
  return table;
}

std::string catalogSettings() {
  std::string settings =
      "[Catalogs]\r\n"
      "Server=OLDSRV\r\n"
      "Directory=LNK900\r\n"
      "[eZ-Lines]\r\n";
  settings.append("Server=").append(kServer).append("\r\n");
  settings.append("DataShare=DATA\r\nCatalogShare=CATCON\r\n");
  settings.append("Directory=").append(kDirectory).append("\r\n");
  settings.append("TerminalID=5\r\nCustomerNumber=1234\r\n");
  return settings;
}

}  // namespace dg::sample
