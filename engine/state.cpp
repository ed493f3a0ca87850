#include "engine/state.h"

#include "engine/business_basic.h"
#include "platform/values/run_time_error.h"

namespace dg {

std::string MaskTable{kDefaultMaskTable};
bool UseTCP = false;
SocketHandle BrokerSocket = 0;

// Never destroyed: an engine object that ends after all else at the process's exit still drops its
// references here, and files that are open then are closed by the system.
std::shared_ptr<cSystem>& SystemInfo = *new std::shared_ptr<cSystem>;
std::shared_ptr<cEpcInfo>& EpcInfo = *new std::shared_ptr<cEpcInfo>;
std::shared_ptr<cBusinessBasic>& SharedEngine = *new std::shared_ptr<cBusinessBasic>;
std::shared_ptr<cLinks>& Links = *new std::shared_ptr<cLinks>;
std::shared_ptr<cOpenFiles>& OpenFiles = *new std::shared_ptr<cOpenFiles>;
std::shared_ptr<cLogicalFiles>& LogicalFiles = *new std::shared_ptr<cLogicalFiles>;

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
