#include "tools/check/store_reader.h"

#include <algorithm>
#include <set>
#include <utility>

#include "engine/links.h"
#include "engine/logical_file.h"
#include "engine/text_utilities.h"
#include "platform/environment.h"
#include "platform/file.h"
#include "platform/share_path.h"
#include "platform/text.h"
#include "platform/values/run_time_error.h"
#include "tools/check/known_files.h"

namespace dg::check {

namespace {

// More than any share has: what goes beyond is damage, and must not cost time or memory.
constexpr std::int64_t kMostLinks = 65'536;
constexpr std::size_t kMostDirectories = 128;
constexpr std::int64_t kMostDirectoryEntries = 4'096;

/// The data file of a directory file; empty for a name that is too short to have one.
std::string dataFileOf(const std::string& directoryFile) {
  return directoryFile.size() < kDirectoryEndingWidth ? std::string() : dataFilePath(directoryFile);
}

}  // namespace

const DirectoryTableEntry* DirectoryTable::find(std::string_view name) const {
  const auto found = firstByName.find(name);
  return found == firstByName.end() ? nullptr : &entries[found->second];
}

StoreReader::StoreReader(std::string server, std::string directory)
    : server_(std::move(server)), directory_(std::move(directory)) {
  readLinks();
  for (const LinkEntry& link : links_) {
    if (!isOfThisStore(link) || link.repeated || findDirectory(link.resolution) != nullptr)
      continue;
    if (directories_.size() == kMostDirectories) {
      tooManyDirectories_ = true;
      break;
    }
    readDirectory(pathOf(link.resolution));
  }
  collectFiles();
}

std::string StoreReader::sharePath(std::string_view path) const {
  return "\\\\" + server_ + "\\VLMRLNK\\" + std::string(path);
}

std::string StoreReader::storePath(std::string_view name) const {
  return sharePath(physicalName(name));
}

bool StoreReader::isOfThisStore(const LinkEntry& link) const {
  const std::string prefix = ":" + directory_ + ":";
  return link.link.size() > prefix.size() &&
         equalIgnoringCase(link.link.substr(0, prefix.size()), prefix);
}

std::string_view StoreReader::shortName(const LinkEntry& link) const {
  const std::string_view name = link.link;
  return isOfThisStore(link) ? catalogueSpelling(name.substr(directory_.size() + 2)) : name;
}

Presence StoreReader::open(const std::string& path, const std::string& shown,
                           std::shared_ptr<StoreFile>& file, std::string& error) const {
  if (!sharePathNames(path)) return Presence::kOutside;
  try {
    if (!fileSystem().fileExists(path)) return Presence::kMissing;
    file = std::make_shared<StoreFile>(shown, fileSystem().open(path, FileAccess::kRead));
    return Presence::kThere;
  } catch (const RunTimeError& failure) {
    error = failure.description();
    return Presence::kUnreadable;
  }
}

Presence StoreReader::look(std::string_view resolution) const {
  std::shared_ptr<StoreFile> file;
  std::string error;
  const std::string path = pathOf(resolution);
  return open(sharePath(path), path, file, error);
}

/// The path below the link share that a resolution name stands for, in one spelling for all that
/// lead to the same file, but for upper and lower case.
std::string StoreReader::pathOf(std::string_view resolution) const {
  std::string path(resolution);
  std::replace(path.begin(), path.end(), ':', '\\');
  const auto names = sharePathNames(sharePath(path));
  if (!names) return path;
  path.clear();
  for (std::size_t i = 2; i < names->size(); ++i)  // server and share stand in front
    path.append(path.empty() ? "" : "\\").append((*names)[i]);
  return path;
}

void StoreReader::readLinks() {
  std::shared_ptr<StoreFile> table;
  linkTablePresence_ = open(sharePath(kLinkTable), kLinkTable, table, linkTableError_);
  if (!table) return;
  std::set<std::string> known;
  try {
    const std::int64_t length = std::min(table->size(), kMostLinks * link_entry::kSize);
    linkTableTooLong_ = table->size() > length;
    linkTable_ = table->bytes(0, static_cast<std::size_t>(length));
    for (std::int64_t number = 0; number * link_entry::kSize < length; ++number) {
      const std::string bytes = linkTable_.substr(
          static_cast<std::size_t>(number * link_entry::kSize), link_entry::kSize);
      const cLink link = cLink::decode(bytes);
      LinkEntry entry{.number = number,
                      .link = link.LinkFile,
                      .resolution = link.ResolutionFile,
                      .cut = bytes.size() < link_entry::kSize};
      if (entry.link.empty() && !entry.cut) continue;
      entry.repeated = !known.insert(upperCase(entry.link)).second;
      links_.push_back(std::move(entry));
    }
  } catch (const RunTimeError& failure) {
    linkTablePresence_ = Presence::kUnreadable;
    linkTableError_ = failure.description();
  }
}

std::optional<std::int64_t> StoreReader::findInLinkTable(std::string_view name) const {
  const std::string link = ":" + directory_ + ":" + std::string(name);
  for (std::size_t at = linkTable_.find(link); at != std::string::npos;
       at = linkTable_.find(link, at + 1)) {
    const std::size_t end = at + link.size();
    const bool isWhole = end == linkTable_.size() || Trun(linkTable_.substr(end, 1), true).empty();
    if (isWhole) return static_cast<std::int64_t>(at);
  }
  return std::nullopt;
}

void StoreReader::readDirectory(const std::string& path) {
  DirectoryTable table;
  table.path = path;
  table.presence = open(sharePath(path), path, table.file, table.error);
  const std::string dataPath = dataFileOf(path);
  table.dataPresence = open(sharePath(dataPath), dataPath, table.data, table.dataError);
  try {
    for (std::int64_t number = 0; table.file && number < kMostDirectoryEntries &&
                                  number * DirectoryEntry::kSize < table.file->size();
         ++number) {
      auto entry = DirectoryEntry::decode(
          table.file->bytes(number * DirectoryEntry::kSize, DirectoryEntry::kSize));
      table.firstByName.emplace(entry.FileName, table.entries.size());
      table.entries.push_back({.number = number, .entry = std::move(entry)});
    }
  } catch (const RunTimeError& failure) {
    table.presence = Presence::kUnreadable;
    table.error = failure.description();
  }
  directoriesByPath_.emplace(upperCase(path), directories_.size());
  directories_.push_back(std::move(table));
}

const DirectoryTable* StoreReader::findDirectory(std::string_view resolution) const {
  const auto found = directoriesByPath_.find(upperCase(pathOf(resolution)));
  return found == directoriesByPath_.end() ? nullptr : &directories_[found->second];
}

void StoreReader::collectFiles() {
  for (const LinkEntry& link : links_) {
    if (!isOfThisStore(link) || link.repeated) continue;
    const DirectoryTable* table = findDirectory(link.resolution);
    if (table == nullptr || !table->data) continue;
    const std::string name(shortName(link));
    const DirectoryTableEntry* found = table->find(name);
    if (found == nullptr) continue;
    filesByName_.emplace(name, files_.size());
    files_.push_back({.name = name, .entry = found->entry, .data = table->data});
  }
}

LogicalView* StoreReader::find(std::string_view name) {
  const auto found = filesByName_.find(name);
  return found == filesByName_.end() ? nullptr : &files_[found->second];
}

}  // namespace dg::check
