#include "engine/state.h"

#include "engine/business_basic.h"
#include "platform/run_time_error.h"

namespace dg {

std::string MaskTable{kDefaultMaskTable};
bool UseTCP = false;
SocketHandle BrokerSocket = 0;

std::shared_ptr<cSystem> SystemInfo;
std::shared_ptr<cEpcInfo> EpcInfo;
std::shared_ptr<cBusinessBasic> SharedEngine;
std::shared_ptr<cLinks> Links;
std::shared_ptr<cOpenFiles> OpenFiles;
std::shared_ptr<cLogicalFiles> LogicalFiles;

void resetEngineState() {
  SharedEngine.reset();
  LogicalFiles.reset();
  OpenFiles.reset();
  Links.reset();
  EpcInfo.reset();
  SystemInfo.reset();
  MaskTable = kDefaultMaskTable;
  UseTCP = false;
  BrokerSocket = 0;
}

cBusinessBasic& sharedEngine() {
  if (!SharedEngine) throw RunTimeError(kObjectNotSet);
  return *SharedEngine;
}

}  // namespace dg
