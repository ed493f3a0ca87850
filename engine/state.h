#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "engine/links.h"
#include "engine/logical_file.h"
#include "engine/open_file.h"
#include "engine/system_info.h"
#include "platform/socket.h"

namespace dg {

class cBusinessBasic;

/// Number of characters of the packed-text table.
inline constexpr std::size_t kMaskTableSize = 40;
/// The packed-text table as every engine creation sets it.
inline constexpr std::string_view kDefaultMaskTable = " ,/.0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ";

/// Module state of the engine: one per process, shared by all engine objects. A second engine
/// object replaces the collections of the first; the end of any engine object drops the four
/// references marked so, for every other object too.
extern std::string MaskTable;      ///< packed-text table, kMaskTableSize characters
extern bool UseTCP;                ///< broker transport; no code of the program raises it
extern SocketHandle BrokerSocket;  ///< connection to the broker; no code of the program sets it

extern std::shared_ptr<cSystem>& SystemInfo;  ///< dropped at an engine object's end
extern std::shared_ptr<cEpcInfo>& EpcInfo;
extern std::shared_ptr<cBusinessBasic>& SharedEngine;  ///< serves all views; empty when it failed
extern std::shared_ptr<cLinks>& Links;                 ///< dropped at an engine object's end
extern std::shared_ptr<cOpenFiles>& OpenFiles;         ///< dropped at an engine object's end
extern std::shared_ptr<cLogicalFiles>& LogicalFiles;   ///< dropped at an engine object's end

/// The engine object that serves all views; raises 91 when there is none.
cBusinessBasic& sharedEngine();

/// Back to the state of a fresh process. For tests, and for a program that loads several stores.
void resetEngineState();

}  // namespace dg
