#include "platform/posix/native_path.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <dirent.h>
#include <fstream>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <sys/stat.h>
#include <unordered_map>
#include <utility>
#include <vector>

#include "platform/environment.h"
#include "platform/file_call.h"
#include "platform/posix/mounts.h"
#include "platform/posix/system_error.h"
#include "platform/share_path.h"
#include "platform/system_file.h"
#include "platform/text.h"
#include "platform/values/run_time_error.h"

namespace dg {

namespace {

bool isAbsence(int error) {
  return error == ENOENT || error == ENOTDIR;
}

/// What stands at a path of the platform's own form.
struct Entry {
  std::string native;
  mode_t mode = 0;  ///< a link's own; 0 when nothing is there
  int error = 0;    ///< of errno: why it is not known what else may stand there; else 0

  bool isThere() const { return mode != 0; }
};

Entry entryAt(std::string native) {
  struct stat status = {};
  const bool isThere = ::lstat(native.c_str(), &status) == 0;
  const int error = isThere || isAbsence(errno) ? 0 : errno;
  noteFileCall(FileCall::kQuestion);
  return {.native = std::move(native), .mode = isThere ? status.st_mode : 0, .error = error};
}

/// A name as it is compared: bytes of the code page in lower case. Folders usually name their files
/// in UTF-8; what is none, or lies outside the code page, stays as it is.
std::string foldedName(const std::string& name) {
  const std::string bytes = bytesFromUtf8(name);
  return lowerCase(utf8FromBytes(bytes) == name ? bytes : name);
}

/// A folder's entries by their folded names. Of several that differ in case alone the first
/// in byte order, so that no answer depends on the folder's own order.
using Listing = std::unordered_map<std::string, std::string>;

/// What a load has learnt of the share's folders; a folder of documents may hold thousands. A call
/// that a load has given up may still come to it, so it has a mutex, which nobody holds during a
/// system call.
struct KnownPlaces {
  std::mutex mutex;
  bool areKept = false;
  std::unordered_map<std::string, std::shared_ptr<const Listing>> listings;
  std::unordered_map<std::string, std::string> realFolders;
};

KnownPlaces& knownPlaces() {
  // Never destroyed: a call that was given up may come back while the program ends.
  static KnownPlaces& places = *new KnownPlaces;
  return places;
}

/// What a folder holds; nothing of one that is not there. Null where it cannot be read to its end:
/// a name that is not in a part of it may be in the rest. errno then tells why.
std::shared_ptr<const Listing> readListing(const std::string& folder) {
  struct Closer {
    void operator()(DIR* open) const { ::closedir(open); }
  };
  const std::unique_ptr<DIR, Closer> open(::opendir(folder.c_str()));
  const int error = errno;
  noteFileCall(FileCall::kQuestion);
  errno = error;
  if (!open && !isAbsence(errno)) return nullptr;
  auto listing = std::make_shared<Listing>();
  if (!open) return listing;
  for (errno = 0; const dirent* entry = ::readdir(open.get()); errno = 0) {
    const std::string name = entry->d_name;
    const auto [place, isNew] = listing->try_emplace(foldedName(name), name);
    if (!isNew && name < place->second) place->second = name;
  }
  if (errno != 0) return nullptr;
  return listing;
}

/// The same, kept for a load once it has been read.
std::shared_ptr<const Listing> listingOf(const std::string& folder) {
  KnownPlaces& places = knownPlaces();
  {
    const std::lock_guard<std::mutex> lock(places.mutex);
    const auto known = places.listings.find(folder);
    if (known != places.listings.end()) return known->second;
  }
  std::shared_ptr<const Listing> listing = readListing(folder);
  if (listing == nullptr) return listing;
  const std::lock_guard<std::mutex> lock(places.mutex);
  return places.areKept ? places.listings.try_emplace(folder, listing).first->second : listing;
}

/// A folder's entry of that name as it is written, else without regard to case.
Entry entryIn(const std::string& folder, const std::string& name) {
  Entry entry = entryAt(folder + "/" + name);
  if (entry.isThere() || entry.error != 0) return entry;
  const std::shared_ptr<const Listing> listing = listingOf(folder);
  if (listing == nullptr) {
    entry.error = errno;
    return entry;
  }
  const auto found = listing->find(lowerCase(name));
  if (found == listing->end() || found->second == name) return entry;
  return entryAt(folder + "/" + found->second);
}

std::string joined(const std::string& root, const std::vector<std::string>& names) {
  std::string native = root;
  for (const std::string& name : names)
    native += "/" + name;
  return native;
}

Entry resolveNames(const std::string& root, const std::vector<std::string>& names) {
  Entry entry = entryAt(joined(root, names));
  if (entry.isThere()) return entry;

  entry = {.native = root, .mode = S_IFDIR};
  int error = 0;
  for (const std::string& name : names) {
    entry = entryIn(entry.native, name);
    if (error == 0) error = entry.error;
  }
  if (!entry.isThere()) entry.error = error;
  return entry;
}

/// The names of a share's path, where there are shares at all.
std::optional<std::vector<std::string>> namesBelowRoot(const std::string& root,
                                                       const std::string& path) {
  if (root.empty() || root.find('\0') != std::string::npos) return std::nullopt;
  return sharePathNames(path);
}

/// Where a path of a share leads to.
std::optional<Entry> shareEntry(const std::string& root, const std::string& path) {
  const std::optional<std::vector<std::string>> names = namesBelowRoot(root, path);
  if (!names) return std::nullopt;
  return resolveNames(root, *names);
}

std::optional<std::string> realPath(const std::string& native) {
  const std::unique_ptr<char, decltype(&std::free)> real(::realpath(native.c_str(), nullptr),
                                                         &std::free);
  const int error = errno;
  noteFileCall(FileCall::kQuestion);
  errno = error;
  if (!real) return std::nullopt;
  return std::string(real.get());
}

std::optional<std::string> realFolder(const std::string& native) {
  KnownPlaces& places = knownPlaces();
  {
    const std::lock_guard<std::mutex> lock(places.mutex);
    const auto known = places.realFolders.find(native);
    if (known != places.realFolders.end()) return known->second;
  }
  std::optional<std::string> real = realPath(native);
  const std::lock_guard<std::mutex> lock(places.mutex);
  if (real && places.areKept) places.realFolders.emplace(native, *real);
  return real;
}

/// The entry's real path: its folder's and its name, unless it is a link.
std::optional<std::string> realEntry(const Entry& entry) {
  if (!entry.isThere()) return std::nullopt;
  const std::size_t end = entry.native.rfind('/');
  if (S_ISLNK(entry.mode) || end == std::string::npos || end == 0) return realPath(entry.native);
  const std::optional<std::string> folder = realFolder(entry.native.substr(0, end));
  if (!folder) return std::nullopt;
  return *folder + entry.native.substr(end);
}

bool liesBelow(const std::string& real, const std::optional<std::string>& folder) {
  if (!folder) return false;
  if (*folder == "/" || real == *folder) return true;
  return real.size() > folder->size() && real.compare(0, folder->size(), *folder) == 0 &&
         real[folder->size()] == '/';
}

/// The first two names below the root: the share's own folder.
std::string shareFolder(const std::string& native, const std::string& root) {
  const std::size_t server = native.find('/', root.size() + 1);
  const std::size_t share = server == std::string::npos ? server : native.find('/', server + 1);
  return native.substr(0, share);
}

/// Whether the real path of what stands at `native` has not left the share.
bool isWithinShare(const std::string& real, const std::string& native, const std::string& root) {
  return liesBelow(real, realFolder(shareFolder(native, root))) ||
         liesBelow(real, realFolder(root));
}

/// The shares that were found to be reachable: where each root, below its share root, really lies.
/// It is asked once: a share that no longer answers must not hold up a line of the log.
std::map<std::pair<std::string, std::string>, std::string>& metShares() {
  static std::map<std::pair<std::string, std::string>, std::string> shares;
  return shares;
}

}  // namespace

std::optional<std::string> nativePath(const std::string& path) {
  if (path.empty() || path.find('\0') != std::string::npos) return std::nullopt;
  if (isSharePath(path)) {
    std::optional<Entry> entry = shareEntry(environment().shareRoot, path);
    if (!entry) return std::nullopt;
    return std::move(entry->native);
  }
  std::string native = path;
  std::replace(native.begin(), native.end(), '\\', '/');
  return native;
}

Location locate(const std::string& path) {
  if (!isSharePath(path)) {
    std::optional<std::string> native = nativePath(path);
    if (!native) return {.native = {}, .error = kPathNotFound};
    return {.native = std::move(*native)};
  }
  // Of its own: a call that was given up outlives what changes.
  const std::string root = environment().shareRoot;
  std::optional<Entry> entry = shareEntry(root, path);
  if (!entry) return {.native = {}, .error = kPathNotFound};

  if (entry->error != 0) return {.native = {}, .error = pathErrorNumber(entry->error)};

  // The user's own folders lead to a share, and may do so through links; what lies in the share
  // is written by others.
  std::optional<std::string> real = realEntry(*entry);
  if (!real && entry->isThere() && !isAbsence(errno)) {
    return {.native = {}, .error = pathErrorNumber(errno)};
  }
  if (!real) return {.native = std::move(entry->native)};
  if (!isWithinShare(*real, entry->native, root)) return {.native = {}, .error = kPermissionDenied};
  return {.native = std::move(*real), .type = S_ISLNK(entry->mode) ? 0 : entry->mode & S_IFMT};
}

std::optional<std::string> placeAsWritten(const std::string& path) {
  if (!isSharePath(path)) return std::nullopt;
  const std::string root = environment().shareRoot;
  const std::optional<std::vector<std::string>> names = namesBelowRoot(root, path);
  if (!names || names->empty()) return std::nullopt;
  const std::string native = joined(root, *names);
  const std::size_t end = native.rfind('/');
  const std::optional<std::string> folder = realFolder(native.substr(0, end));
  if (!folder) return std::nullopt;
  std::string real = *folder + native.substr(end);
  if (!isWithinShare(real, native, root)) return std::nullopt;
  return real;
}

bool isMissing(const std::string& native) {
  {
    const std::lock_guard<std::mutex> lock(knownPlaces().mutex);
    if (!knownPlaces().areKept) return false;
  }
  const std::size_t end = native.rfind('/');
  const std::shared_ptr<const Listing> listing = listingOf(native.substr(0, end));
  if (listing == nullptr || listing->empty()) return false;
  return !listing->contains(lowerCase(native.substr(end + 1)));
}

bool liesOnShare(const std::string& native) {
  const std::size_t end = native.rfind('/');
  const std::string folder = end == std::string::npos ? "." : native.substr(0, end + 1);
  const std::optional<std::string> real = realPath(folder);
  if (!real) return false;
  const std::string& root = environment().shareRoot;
  // Servers may stand side by side with all else, at the very top: then a share counts once it has
  // been met.
  const std::optional<std::string> realRoot = root.empty() ? std::nullopt : realPath(root);
  if (realRoot && *realRoot != "/" && liesBelow(*real, realRoot)) return true;
  return std::ranges::any_of(metShares(),
                             [&](const auto& share) { return liesBelow(*real, share.second); });
}

void noteShare(const std::string& root) {
  std::pair<std::string, std::string> key(environment().shareRoot, root);
  if (metShares().contains(key)) return;
  const std::optional<std::string> native = nativePath(root);
  if (!native) return;
  std::optional<std::string> real = realPath(*native);
  if (real) metShares().emplace(std::move(key), std::move(*real));
}

bool liesOnOtherMachine(const std::string& path) {
  const std::string root = environment().shareRoot;
  const std::optional<std::vector<std::string>> names = namesBelowRoot(root, path);
  if (!names) return false;
  const std::optional<std::string> real = realFolder(shareFolder(joined(root, *names), root));
  if (!real) return false;
  std::ifstream mounts("/proc/self/mountinfo");
  return isMountedFromElsewhere(mounts, *real);
}

void keepPlaces(bool keep) {
  KnownPlaces& places = knownPlaces();
  const std::lock_guard<std::mutex> lock(places.mutex);
  places.areKept = keep;
  places.listings.clear();
  places.realFolders.clear();
}

}  // namespace dg
