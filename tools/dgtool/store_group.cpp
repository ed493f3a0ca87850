#include "tools/dgtool/store_group.h"

#include <algorithm>

#include "engine/links.h"
#include "engine/state.h"
#include "platform/share_path.h"
#include "platform/text.h"
#include "records/control_file.h"
#include "tools/dgtool/report_format.h"

namespace dg {

namespace {

/// Looks at a store's control file, below the server that SystemInfo names.
KnownStore lookAt(const std::string& directory) {
  KnownStore store{.directory = directory, .name = {}, .error = {}};
  if (!isShareName(directory)) {
    store.error = "is no name of a directory";
    return store;
  }
  try {
    store.name = trim(shown(readStoreName(SystemInfo->linkShare() + directory)));
  } catch (const RunTimeError& error) {
    store.error = "the control file cannot be read: " + error.description();
  }
  return store;
}

std::vector<std::string> linkedDirectories() {
  cLinks links;
  links.load(SystemInfo->linkShare() + kLinkTable);
  return links.directories();
}

std::vector<std::string> namesIn(const std::string& list) {
  std::vector<std::string> names;
  for (std::size_t begin = 0; begin <= list.size();) {
    const std::size_t end = std::min(list.find(',', begin), list.size());
    const std::string name(trim(std::string_view(list).substr(begin, end - begin)));
    const bool known = std::ranges::any_of(
        names, [&](const std::string& other) { return equalIgnoringCase(other, name); });
    if (!name.empty() && !known) names.push_back(name);
    begin = end + 1;
  }
  return names;
}

}  // namespace

void addStoresOption(CLI::App& app, std::string& list) {
  app.add_option("--stores", list, "These store directories, or all that the link table names")
      ->type_name("NAME,NAME,...|all")
      ->check([](const std::string& value) {
        return namesIn(value).empty() ? std::string("names no store") : std::string();
      });
}

std::vector<KnownStore> knownStores(const StoreOptions& options, const Console& console) {
  Session session(options, console);
  session.locateServer();
  std::vector<KnownStore> stores;
  for (const std::string& directory : linkedDirectories())
    stores.push_back(lookAt(directory));
  return stores;
}

std::vector<std::string> wantedStores(const std::string& list, const StoreOptions& options,
                                      const Console& console) {
  Session session(options, console);
  session.locateServer();
  if (list.empty()) return {SystemInfo->mDirectory};
  if (!equalIgnoringCase(trim(list), "all")) return namesIn(bytesFromUtf8(list));
  std::vector<std::string> directories = linkedDirectories();
  if (directories.empty()) throw UsageError("the link table names no store");
  return directories;
}

std::string StoreGroup::whyUnreadable(const std::string& directory) const {
  Session session(options_, console_);
  session.locateServer();
  return lookAt(directory).error;
}

StoreRecap StoreGroup::load(const std::string& directory, const Visitor& visit) {
  StoreRecap store{.directory = directory, .name = {}, .error = {}, .leftOut = {}, .figures = {}};
  try {
    store.error = whyUnreadable(directory);
    if (store.error.empty()) read(store, visit);
  } catch (const UsageError& error) {
    store.error = bytesFromUtf8(error.what());
  } catch (const RunTimeError& error) {
    store.error = error.description();
  }
  if (!store.error.empty()) console_.complain(directory + ": " + store.error);
  whole_ = whole_ && store.error.empty() && store.leftOut.empty();
  return store;
}

void StoreGroup::read(StoreRecap& store, const Visitor& visit) {
  StoreOptions own = options_;
  own.directory = store.directory;
  Session session(own, console_);
  frmTRVN& main = session.load(catalogue_, {});
  session.complain();
  if (!session.storeReachable()) throw UsageError("the store cannot be reached");
  if (!main.lostShare().empty()) throw UsageError("the store cannot be reached any more");
  takeRecap(store, main);
  if (!store.leftOut.empty()) console_.complain(store.directory + ": " + store.leftOut);
  if (!session.isWhole() || !areComplete(main.loadedViews())) whole_ = false;
  if (visit) visit(session, main);
}

std::vector<StoreRecap> StoreGroup::load(const std::vector<std::string>& directories,
                                         const Visitor& visit) {
  std::vector<StoreRecap> stores;
  for (const std::string& directory : directories) {
    if (tellsProgress_) {
      console_.err << stores.size() + 1 << '/' << directories.size() << ' '
                   << terminalText(directory) << '\n'
                   << std::flush;
    }
    stores.push_back(load(directory, visit));
  }
  return stores;
}

}  // namespace dg
