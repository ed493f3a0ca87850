#include <optional>
#include <utility>
#include <vector>

#include "engine/business_basic.h"
#include "engine/state.h"
#include "forms/grid.h"
#include "platform/text.h"
#include "tools/dgtool/form_text.h"
#include "tools/dgtool/inspect.h"
#include "tools/dgtool/session.h"
#include "tools/dgtool/window_json.h"

namespace dg {

namespace {

/// What there is to tell about a logical file.
struct FileFacts {
  std::string name;
  std::string type;
  std::int32_t startBlock = 0;
  std::int32_t recordLength = 0;
  std::int32_t lastRecord = 0;
  std::optional<std::int32_t> active;    ///< type "L" only
  std::optional<std::int32_t> highUsed;  ///< type "L" only
  std::string error;                     ///< empty: none
};

constexpr ColumnSpec kColumns[] = {
    {.name = "Name"},
    {.name = "Type"},
    {.name = "Start block", .kind = ColumnKind::kNumber},
    {.name = "Record length", .kind = ColumnKind::kNumber},
    {.name = "Last record", .kind = ColumnKind::kNumber},
    {.name = "Active", .kind = ColumnKind::kNumber},
    {.name = "Highest used", .kind = ColumnKind::kNumber},
    {.name = "Trouble"},
};

/// The names that the link table has for the store's directory, in its order.
std::vector<std::string> linkedNames() {
  const std::string prefix = ":" + SystemInfo->mDirectory + ":";
  std::vector<std::string> names;
  for (const auto& link : Links->NewEnum()) {
    const std::string& name = link->LinkFile;
    if (name.size() > prefix.size() && equalIgnoringCase(name.substr(0, prefix.size()), prefix)) {
      names.push_back(name.substr(prefix.size()));
    }
  }
  return names;
}

void readRecordZero(const cLogicalFile& file, FileFacts& facts) {
  if (file.FileType != "L") return;
  bool orb = true;
  facts.active = file.ActiveCount(orb);
  facts.highUsed = file.HighUsedRecord(orb);
}

FileFacts factsOf(const std::string& name) {
  FileFacts facts;
  facts.name = name;
  try {
    const auto file = sharedEngine().LogicalOpen(":" + SystemInfo->mDirectory + ":" + name);
    if (!file) {
      facts.error = "the link leads nowhere";
      return facts;
    }
    facts.type = file->FileType;
    facts.startBlock = file->Position;
    facts.recordLength = file->RecordLength;
    facts.lastRecord = file->LastRecord;
    if (facts.type.empty()) {
      facts.error = "its directory has no such file";
    } else if (!file->OpenFile) {
      facts.error = "its data file cannot be opened";
    } else {
      readRecordZero(*file, facts);
    }
  } catch (const RunTimeError& error) {
    facts.error = error.description();
  }
  return facts;
}

Json json(const FileFacts& facts) {
  Json result = {{"name", jsonText(facts.name)},
                 {"fileType", jsonText(facts.type)},
                 {"startBlock", facts.startBlock},
                 {"recordLength", facts.recordLength},
                 {"lastRecord", facts.lastRecord}};
  if (facts.active) result["activeCount"] = *facts.active;
  if (facts.highUsed) result["highUsedRecord"] = *facts.highUsed;
  if (!facts.error.empty()) result["error"] = jsonText(facts.error);
  return result;
}

void writeJsonFiles(std::ostream& out, const std::vector<FileFacts>& files) {
  Json list = Json::array();
  for (const FileFacts& facts : files)
    list.push_back(json(facts));
  writeJson(out, {{"directory", jsonText(SystemInfo->mDirectory)}, {"files", std::move(list)}});
}

void writeTextFiles(std::ostream& out, const std::vector<FileFacts>& files) {
  Grid table("files", kColumns);
  for (const FileFacts& facts : files) {
    table.AddNew();
    table.set(0, facts.name);
    table.set(1, facts.type);
    table.set(2, facts.startBlock);
    table.set(3, facts.recordLength);
    table.set(4, facts.lastRecord);
    if (facts.active) table.set(5, *facts.active);
    if (facts.highUsed) table.set(6, *facts.highUsed);
    table.set(7, facts.error);
  }
  writeTable(out, table);
}

}  // namespace

void InspectCommand::addOptions(CLI::App& app) {
  app.add_flag("--json", options_.json, "Write one JSON document");
  addStoreOptions(app, options_.store);
}

int InspectFilesCommand::run(const Console& console) {
  Session session(options_.store, console);
  session.openEngine();
  std::vector<FileFacts> files;
  bool trouble = false;
  for (const std::string& name : linkedNames()) {
    files.push_back(factsOf(name));
    trouble = trouble || !files.back().error.empty();
  }
  if (options_.json) {
    writeJsonFiles(console.out, files);
  } else {
    writeTextFiles(console.out, files);
  }
  session.complain();
  return trouble ? 1 : 0;
}

std::shared_ptr<cLogicalFile> openLogicalFile(const std::string& name) {
  auto file = sharedEngine().LogicalOpen(name);
  if (!file) throw UsageError("the link table has no file " + name);
  if (file->FileType.empty()) throw UsageError("the directory has no file " + name);
  if (!file->OpenFile) throw UsageError("the data file of " + name + " cannot be opened");
  return file;
}

std::string hexText(std::string_view bytes) {
  constexpr char kDigits[] = "0123456789abcdef";
  std::string text;
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    text += kDigits[byte >> 4];
    text += kDigits[byte & 15];
  }
  return text;
}

}  // namespace dg
