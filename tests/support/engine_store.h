#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "engine/business_basic.h"
#include "platform/message_box.h"
#include "shell/surroundings.h"
#include "tests/support/memory_file_system.h"

namespace dg::test {

/// A store on a share in memory, and the process as that store's workstation: server "srv", store
/// directory "LNK001", computer "PC7" with terminal 12. Its end puts everything back.
class EngineStore {
 public:
  EngineStore();
  EngineStore(const EngineStore&) = delete;
  EngineStore& operator=(const EngineStore&) = delete;

  MemoryFileSystem& files() { return *files_; }
  /// "\\srv\VLMRLNK\" and a name below it.
  static std::string onShare(const std::string& name) { return "\\\\srv\\VLMRLNK\\" + name; }
  /// "\\srv\VLMRLNK\LNK001\" and a name.
  static std::string inStore(const std::string& name) { return onShare("LNK001\\" + name); }

  void addLink(const std::string& link, const std::string& resolution);
  /// A logical file of the store in the data file "DATADB", behind those placed before.
  void place(const std::string& name, char type, std::int32_t recordLength, std::int32_t lastRecord,
             const std::string& content);
  /// A file as it now stands.
  std::string readWhole(const std::string& path);
  /// The data file as it now stands.
  std::string dataFile();
  /// First block of a placed file in the data file.
  std::int32_t startBlock(const std::string& name) const;

  /// The engine; the first call writes links and directory, and creates it.
  cBusinessBasic& engine();
  /// Message boxes so far.
  const std::vector<MessageBox>& messages() const { return messages_; }

 private:
  struct Placed {
    std::string name;
    std::int32_t block = 0;
  };

  std::vector<MessageBox> messages_;
  Surroundings surroundings_;
  MemoryFileSystem* files_;
  std::string links_;
  std::string directory_;
  std::string data_;
  std::vector<Placed> placed_;
  std::unique_ptr<cBusinessBasic> engine_;
};

/// Bytes of a link table's entry.
std::string linkEntry(const std::string& link, const std::string& resolution);
/// Bytes of a directory's entry.
std::string directoryEntry(const std::string& name, std::int32_t block, std::int32_t recordLength,
                           char type, std::int32_t lastRecord);

}  // namespace dg::test
