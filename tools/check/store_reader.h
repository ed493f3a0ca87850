#pragma once

#include <cstdint>
#include <deque>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/logical_file.h"
#include "platform/read_ahead.h"
#include "tools/check/logical_view.h"
#include "tools/check/store_file.h"

namespace dg::check {

/// An entry of the link table.
struct LinkEntry {
  std::int64_t number = 0;  ///< from 0
  std::string link;         ///< ":directory:name"
  std::string resolution;   ///< path of the directory file, ":" for each backslash
  bool cut = false;         ///< shorter than an entry is
  bool repeated = false;    ///< an earlier entry has that link name and counts
};

/// What a path of the share led to.
enum class Presence { kThere, kMissing, kOutside, kUnreadable };

/// An entry of a directory file.
struct DirectoryTableEntry {
  std::int64_t number = 0;  ///< from 0
  DirectoryEntry entry;
};

/// A directory file and its data file.
struct DirectoryTable {
  std::string path;  ///< of the directory file below the link share
  Presence presence = Presence::kMissing;
  std::string error;                ///< why it is unreadable
  std::shared_ptr<StoreFile> file;  ///< empty unless there
  std::vector<DirectoryTableEntry> entries;
  std::map<std::string, std::size_t, std::less<>> firstByName;  ///< in entries
  Presence dataPresence = Presence::kMissing;
  std::string dataError;
  std::shared_ptr<StoreFile> data;  ///< empty unless there

  /// The entry of a name that counts, or null.
  const DirectoryTableEntry* find(std::string_view name) const;
};

/// Reads a store's files as bytes, without the engine: link table, directories, data files. It
/// judges nothing. While it lives, what was read is kept: a check looks at neighbouring places one
/// after another, and every read of a share is a round trip.
class StoreReader {
 public:
  /// Opens the store of a directory on the link share of a server and reads link table and
  /// directories, as far as they can be read.
  StoreReader(std::string server, std::string directory);

  const std::string& directory() const { return directory_; }

  // The tables. What is longer than any real table is left out.
  Presence linkTablePresence() const { return linkTablePresence_; }
  const std::string& linkTableError() const { return linkTableError_; }
  bool linkTableTooLong() const { return linkTableTooLong_; }
  const std::vector<LinkEntry>& links() const { return links_; }
  /// The byte of the link table at which the link name of a file of this store stands, be it in the
  /// place of an entry's name or not.
  std::optional<std::int64_t> findInLinkTable(std::string_view name) const;
  bool isOfThisStore(const LinkEntry& link) const;
  /// Behind the store's prefix, else the link name as it is.
  std::string_view shortName(const LinkEntry& link) const;
  /// Those that links of this store name, in the order of the links.
  const std::deque<DirectoryTable>& directories() const { return directories_; }
  /// The table that a resolution name leads to, or null.
  const DirectoryTable* findDirectory(std::string_view resolution) const;
  bool tooManyDirectories() const { return tooManyDirectories_; }

  /// The logical files of this store, in the order of the links: those whose directory and data
  /// file are there.
  std::deque<LogicalView>& files() { return files_; }
  /// The logical file of a name, or null when there is none that can be read.
  LogicalView* find(std::string_view name);

  /// A file of the link share by its path below it, or of the store directory.
  std::string sharePath(std::string_view path) const;
  std::string storePath(std::string_view name) const;
  /// The path below the link share of a file of the store directory, as findings have it.
  std::string physicalName(std::string_view name) const {
    return directory_ + "\\" + std::string(name);
  }
  /// Opens a file; `error` gets the reason when it is there and cannot be read. `shown` is the name
  /// to tell people.
  Presence open(const std::string& path, const std::string& shown, std::shared_ptr<StoreFile>& file,
                std::string& error) const;
  /// Whether the path of a resolution name is there, when it is no table of this store.
  Presence look(std::string_view resolution) const;

 private:
  void readLinks();
  void readDirectory(const std::string& path);
  std::string pathOf(std::string_view resolution) const;
  void collectFiles();

  ReadAheadScope keeping_;
  std::string server_;
  std::string directory_;
  Presence linkTablePresence_ = Presence::kMissing;
  std::string linkTableError_;
  bool linkTableTooLong_ = false;
  std::string linkTable_;
  bool tooManyDirectories_ = false;
  std::vector<LinkEntry> links_;
  std::deque<DirectoryTable> directories_;
  std::map<std::string, std::size_t, std::less<>> directoriesByPath_;  ///< in upper case
  std::deque<LogicalView> files_;
  std::map<std::string, std::size_t, std::less<>> filesByName_;
};

}  // namespace dg::check
