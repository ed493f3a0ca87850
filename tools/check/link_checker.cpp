#include "tools/check/link_checker.h"

#include <set>

#include "engine/links.h"
#include "platform/text.h"
#include "tools/check/known_files.h"
#include "tools/check/text.h"

namespace dg::check {

namespace {

const std::string kTable = kLinkTable;

Place table() {
  return {.file = kTable, .physical = kTable};
}

Place placeOf(const LinkEntry& link) {
  return {.file = kTable,
          .physical = kTable,
          .unit = Unit::kEntry,
          .number = link.number,
          .offset = link.number * link_entry::kSize};
}

/// Whether a name is ":directory:file".
bool isLinkName(std::string_view name) {
  if (name.size() < 4 || name.front() != ':') return false;
  const std::size_t second = name.find(':', 1);
  return second != std::string_view::npos && second > 1 && second + 1 < name.size();
}

}  // namespace

void LinkChecker::check() {
  StoreReader& store = run_.store;
  switch (store.linkTablePresence()) {
    case Presence::kThere:
      break;
    case Presence::kUnreadable:
      run_.findings.damage(kind::kUnreadable, table(),
                           "The link table cannot be read: " + store.linkTableError() + ".");
      break;
    default:
      run_.findings.damage(kind::kLinkTable, table(),
                           "The link table is not there, so no file can be found.");
      return;
  }
  if (store.linkTableTooLong()) {
    run_.findings.damage(kind::kLinkTable, table(),
                         "The link table is longer than any real one; its end was not examined.");
  }
  if (store.tooManyDirectories()) {
    run_.findings.damage(
        kind::kLinkTable, table(),
        "The links of this store name more directory files than any real store has; the last ones "
        "were not examined.");
  }
  for (const LinkEntry& link : store.links())
    checkLink(link);
  checkMissingNames();
}

void LinkChecker::checkLink(const LinkEntry& link) {
  const Place place = placeOf(link);
  if (link.cut) {
    run_.findings.note(kind::kLinkShort, place,
                       "The last entry is cut short; it counts as far as it goes.");
    if (link.link.empty()) return;
  }
  if (link.repeated) {
    run_.findings.note(kind::kLinkRepeated, place,
                       "The link " + link.link + " stands a second time; the first one counts.");
    return;
  }
  if (!isLinkName(link.link)) {
    run_.findings.note(kind::kLinkName, place,
                       "The link name \"" + link.link +
                           "\" is not of the form \":directory:file\", so no program asks for it.");
    return;
  }
  if (run_.store.isOfThisStore(link)) {
    checkOwnLink(link, place);
  } else {
    checkOthersLink(link, place);
  }
}

void LinkChecker::checkOwnLink(const LinkEntry& link, const Place& place) {
  const DirectoryTable* table = run_.store.findDirectory(link.resolution);
  if (table == nullptr) return;  // beyond the limit, and told
  const std::string lead = "The link " + link.link + " leads to \"" + link.resolution + "\"";
  switch (table->presence) {
    case Presence::kOutside:
      run_.findings.damage(kind::kLinkOutside, place,
                           lead + ", which is no path below the link share.");
      return;
    case Presence::kMissing:
      run_.findings.damage(kind::kLinkNowhere, place,
                           lead + ", but no such directory file exists.");
      return;
    case Presence::kUnreadable:
      return;  // told once, with the directory
    case Presence::kThere:
      break;
  }
  const std::string_view name = run_.store.shortName(link);
  if (table->find(name) == nullptr) {
    run_.findings.damage(kind::kLinkNowhere, place, lead + ", which has no entry of that name.");
  }
}

void LinkChecker::checkOthersLink(const LinkEntry& link, const Place& place) {
  const std::string lead = "Another store's link " + link.link + " leads to \"" + link.resolution;
  const auto [looked, isNew] = others_.try_emplace(link.resolution);
  if (isNew) looked->second = run_.store.look(link.resolution);
  switch (looked->second) {
    case Presence::kOutside:
      run_.findings.note(kind::kLinkOutside, place,
                         lead + "\", which is no path below the link share.");
      break;
    case Presence::kMissing:
      run_.findings.note(kind::kLinkNowhere, place,
                         lead + "\", but no such directory file exists.");
      break;
    default:
      break;
  }
}

/// A view whose file has no link ends in an error. A store may do without a part of the suite, but
/// then nothing else tells of the file.
void LinkChecker::checkMissingNames() {
  std::set<std::string, std::less<>> linked;
  for (const LinkEntry& link : run_.store.links()) {
    if (run_.store.isOfThisStore(link)) linked.emplace(run_.store.shortName(link));
  }
  if (linked.empty()) {
    run_.findings.damage(kind::kLinkMissing, table(),
                         "No link belongs to the store " + run_.store.directory() + ".");
    return;
  }
  const auto checkName = [&](std::string_view name) {
    if (linked.contains(name)) return;
    const std::string lead = "The store has no link for " + std::string(name);
    for (const DirectoryTable& directory : run_.store.directories()) {
      if (directory.find(name) == nullptr) continue;
      run_.findings.damage(kind::kLinkMissing, table(),
                           lead + ", though its directory " + directory.path +
                               " has that file: what needs it shows an error.");
      return;
    }
    if (const auto offset = run_.store.findInLinkTable(name)) {
      Place place = table();
      place.offset = offset;
      run_.findings.damage(kind::kLinkMissing, place,
                           lead + ": its name stands in the table, and not where an entry's does.");
      return;
    }
    run_.findings.note(kind::kLinkMissing, table(), lead + ", so what needs it shows an error.");
  };
  for (const RecordFileTraits& traits : kRecordFiles)
    checkName(traits.name);
  for (const IndexTraits& traits : kIndexes)
    checkName(traits.name);
}

}  // namespace dg::check
