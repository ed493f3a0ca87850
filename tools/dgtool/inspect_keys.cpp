#include <algorithm>
#include <iomanip>
#include <optional>
#include <utility>
#include <vector>

#include "engine/business_basic.h"
#include "engine/keyed_index.h"
#include "engine/state.h"
#include "engine/walk_guard.h"
#include "platform/values/checked.h"
#include "tools/dgtool/inspect.h"
#include "tools/dgtool/session.h"
#include "tools/dgtool/window_json.h"

namespace dg {

namespace {

/// More than any index can hold.
constexpr int kMostEntries = 1'000'000'000;

struct KeyEntry {
  std::string key;
  std::int32_t record = 0;
};

/// What a walk over an index found, as far as it came.
struct KeyList {
  std::optional<std::int32_t> keyLength;
  std::optional<std::int32_t> count;
  std::vector<KeyEntry> entries;
  std::string error;  ///< what ended the count or the walk early; empty: nothing
};

class KeyWalk {
 public:
  KeyWalk(std::shared_ptr<cLogicalFile> index, const InspectOptions& options)
      : index_(std::move(index)), options_(options) {}

  KeyList run() {
    bool orb = true;
    noteError([&] { list_.keyLength = sharedEngine().KLength(index_, orb); });
    // A chain of leaves that breaks off has no count, and still entries before the break.
    noteError([&] { list_.count = sharedEngine().KCount(index_, orb); });
    if (list_.keyLength) noteError([this] { walk(); });
    return std::move(list_);
  }

 private:
  template <class Step>
  void noteError(Step step) {
    try {
      step();
    } catch (const RunTimeError& error) {
      list_.error = error.description();
    }
  }

  bool backwards() const { return options_.reverse; }

  /// Where the walk begins. Backwards without a place to begin at is from the end.
  void start() {
    bool orb = true;
    if (options_.find) {
      key_ = *options_.find;
      sharedEngine().KFind(index_, cursor_, key_, record_, orb);
    } else if (options_.last || backwards()) {
      // The last entry is looked for before the end mark, so an empty index must not be asked.
      if (list_.count != 0) startAtLast();
    } else {
      sharedEngine().KFind(index_, cursor_, key_, record_, orb);
      record_ = checkedAbs(record_);
    }
  }

  /// The engine looks for the last entry in the last leaf only. Where the end mark stands alone
  /// there, that is none, and the entry is the one before the mark.
  void startAtLast() {
    bool orb = true;
    sharedEngine().KLast(index_, cursor_, key_, record_, orb);
    if (Unpack(index_cursor::kCurrentEntry, cursor_) != 0) return;
    key_.assign(static_cast<std::size_t>(std::max(*list_.keyLength, 0)), '\xFF');
    sharedEngine().KFind(index_, cursor_, key_, record_, orb);
    sharedEngine().KPrev(index_, cursor_, key_, record_, orb);
  }

  void walk() {
    WalkGuard guard(*index_, mostEntriesPerBlock(*list_.keyLength));
    start();
    while (record_ != 0) {
      if (options_.limit && std::cmp_greater_equal(list_.entries.size(), *options_.limit)) return;
      guard.step(placeOf(cursor_));
      list_.entries.push_back({key_, record_});
      bool orb = true;
      if (backwards()) {
        sharedEngine().KPrev(index_, cursor_, key_, record_, orb);
      } else {
        sharedEngine().KNext(index_, cursor_, key_, record_, orb);
      }
    }
  }

  std::shared_ptr<cLogicalFile> index_;
  const InspectOptions& options_;
  KeyList list_;
  std::string cursor_;
  std::string key_;
  std::int32_t record_ = 0;
};

template <class T>
Json numberOrNull(const std::optional<T>& value) {
  return value ? Json(*value) : Json(nullptr);
}

void writeJsonKeys(std::ostream& out, const std::string& name, const KeyList& list) {
  Json entries = Json::array();
  for (const KeyEntry& entry : list.entries) {
    entries.push_back({{"key", hexText(entry.key)}, {"record", entry.record}});
  }
  Json document = {{"name", jsonText(name)},
                   {"keyLength", numberOrNull(list.keyLength)},
                   {"count", numberOrNull(list.count)},
                   {"entries", std::move(entries)}};
  if (!list.error.empty()) document["error"] = jsonText(list.error);
  writeJson(out, document);
}

constexpr int kRecordWidth = 10;

void writeTextKeys(std::ostream& out, const std::string& name, const KeyList& list) {
  out << terminalText(name);
  if (list.count) out << ": " << *list.count << " keys";
  if (list.keyLength) out << " of " << *list.keyLength << " bytes";
  out << '\n';
  for (const KeyEntry& entry : list.entries) {
    out << hexText(entry.key) << std::setw(kRecordWidth) << entry.record << "  |"
        << terminalText(entry.key) << "|\n";
  }
}

}  // namespace

void InspectKeysCommand::addOptions(CLI::App& app) {
  app.add_option("NAME", options_.name, "Logical name of the index, such as CUSTI")->required();
  auto* find = addParsed(app, "--find", options_.find, parseHex, "hexadecimal text",
                         "Begin at this key, or the next greater one");
  find->type_name("HEX");
  app.add_flag("--last", options_.last, "Begin at the last entry")->excludes(find);
  app.add_flag("--reverse", options_.reverse,
               "Walk backwards; from the last entry when no other is named");
  app.add_option("--limit", options_.limit, "At most this many entries")
      ->type_name("N")
      ->check(CLI::Range(0, kMostEntries));
  InspectCommand::addOptions(app);
}

int InspectKeysCommand::run(const Console& console) {
  Session session(options_.store, console);
  session.openEngine();
  const auto index = openLogicalFile(options_.name);
  if (index->FileType == "L") {
    throw UsageError(options_.name + " is a file of records, not an index");
  }
  const KeyList list = KeyWalk(index, options_).run();
  if (options_.json) {
    writeJsonKeys(console.out, options_.name, list);
  } else {
    writeTextKeys(console.out, options_.name, list);
  }
  if (!list.error.empty()) console.complain(options_.name + ": " + list.error);
  session.complain();
  return list.error.empty() && session.messages().empty() ? 0 : 1;
}

}  // namespace dg
