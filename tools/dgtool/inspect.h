#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "engine/logical_file.h"
#include "tools/dgtool/command.h"

namespace dg {

/// What the `dgtool inspect` commands are told.
struct InspectOptions {
  StoreOptions store;
  std::string name;  ///< logical file
  bool json = false;

  std::optional<std::string> find;  ///< keys: bytes of the key to begin at
  bool last = false;                ///< keys: begin at the last entry
  bool reverse = false;             ///< keys: walk backwards
  std::optional<int> limit;         ///< keys: at most so many entries

  std::int32_t record = 0;
  std::string recordClass;  ///< record: empty for the bytes
  bool hex = false;         ///< record: the bytes as well
};

/// A `dgtool inspect` command. Status 1 when something in the store could not be read as it should.
/// They raise UsageError for a store, file, class or control block that is not there, and 81 for a
/// record that is not.
class InspectCommand : public Command {
 public:
  void addOptions(CLI::App& app) override;

 protected:
  InspectOptions options_;
};

/// The logical files of the store's directory.
class InspectFilesCommand final : public InspectCommand {
 public:
  int run(const Console& console) override;
};

/// The entries of a keyed index.
class InspectKeysCommand final : public InspectCommand {
 public:
  void addOptions(CLI::App& app) override;
  int run(const Console& console) override;
};

/// One record of a logical file, or one block of the control file.
class InspectRecordCommand final : public InspectCommand {
 public:
  void addOptions(CLI::App& app) override;
  int run(const Console& console) override;
};

/// A logical file of the store by name; raises UsageError when the link table or the directory has
/// no such name, or when its data file cannot be opened.
std::shared_ptr<cLogicalFile> openLogicalFile(const std::string& name);

/// Bytes as hexadecimal text without blanks, in small letters.
std::string hexText(std::string_view bytes);

}  // namespace dg
