#include "records/read.h"

#include "engine/state.h"

namespace dg {

std::string readRecord(const LogicalFileArgument& file, std::int32_t number) {
  bool orb = true;
  return sharedEngine().LreadFile(file, number, orb);
}

std::string readRecord(const LogicalFileArgument& file, const LogicalFileArgument& extension,
                       std::int32_t number) {
  std::string record = readRecord(file, number);
  return record += readRecord(extension, number);
}

std::string readBlock(const FileArgument& file, std::int32_t block) {
  bool orb = true;
  return sharedEngine().BlockReadFile(file, block, orb);
}

}  // namespace dg
