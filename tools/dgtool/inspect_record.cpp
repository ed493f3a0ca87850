#include <algorithm>
#include <optional>
#include <utility>
#include <variant>
#include <vector>

#include "engine/business_basic.h"
#include "engine/state.h"
#include "platform/file.h"
#include "platform/text.h"
#include "platform/values/variant.h"
#include "records/file_names.h"
#include "records/read.h"
#include "tools/dgtool/inspect.h"
#include "tools/dgtool/session.h"
#include "tools/dgtool/window_json.h"

namespace dg {

namespace {

/// A block of the control file, which is no logical file: its blocks count from 0.
std::string readControlBlock(std::int32_t number) {
  const auto file = sharedEngine().OpenFile(std::string(files::kControlFile));
  if (!file) throw UsageError(std::string(files::kControlFile) + " cannot be opened");
  const std::int64_t blocks = fileLength(file->vbFileNumber) / kBlockSize;
  if (number < 0 || number >= blocks) {
    throw UsageError(std::string(files::kControlFile) + " has the blocks 0 to " +
                     std::to_string(blocks - 1));
  }
  return readBlock(file, number);
}

const RecordClass& wantedClass(const std::string& name) {
  if (const RecordClass* known = findRecordClass(name)) return *known;
  std::string all;
  for (const RecordClass& known : recordClasses())
    all.append(" ").append(known.name);
  throw UsageError("there is no record class " + name + "; the classes are" + all);
}

// --- Hexadecimal dump ---------------------------------------------------------------------------

constexpr std::size_t kDumpWidth = 16;

/// Lines of offset, sixteen bytes and the characters that they are.
void writeDump(std::ostream& out, std::string_view bytes) {
  for (std::size_t offset = 0; offset < bytes.size(); offset += kDumpWidth) {
    const std::string_view line = bytes.substr(offset, kDumpWidth);
    std::string text;
    for (std::size_t i = 0; i < kDumpWidth; ++i) {
      if (i == kDumpWidth / 2) text += ' ';
      text += i < line.size() ? hexText(line.substr(i, 1)) + " " : "   ";
    }
    std::string place;
    for (int shift = 16; shift >= 0; shift -= 8)
      place += hexText(std::string(1, static_cast<char>(offset >> shift)));
    std::string characters(line);
    const std::string printable = printableBytes(line);
    for (std::size_t i = 0; i < characters.size(); ++i) {
      if (characters[i] != printable[i]) characters[i] = '.';
    }
    out << place << "  " << text << " |" << utf8FromBytes(characters) << "|\n";
  }
}

// --- Members ------------------------------------------------------------------------------------

struct ScalarText {
  std::string operator()(std::int32_t value) const { return std::to_string(value); }
  std::string operator()(const Currency& value) const { return value.text(); }
  std::string operator()(const Date& value) const { return value.isoText(); }
  std::string operator()(const std::string& value) const { return "\"" + value + "\""; }
};

struct ScalarJson {
  Json operator()(std::int32_t value) const { return value; }
  Json operator()(const Currency& value) const { return value.text(); }
  Json operator()(const Date& value) const { return value.isoText(); }
  Json operator()(const std::string& value) const { return jsonText(value); }
};

Json memberJson(const MemberValue& member) {
  if (const auto* scalar = std::get_if<MemberValue::Scalar>(&member.value)) {
    return std::visit(ScalarJson{}, *scalar);
  }
  Json list = Json::array();
  for (const auto& scalar : std::get<1>(member.value))
    list.push_back(std::visit(ScalarJson{}, scalar));
  return list;
}

std::string memberText(const MemberValue& member) {
  if (const auto* scalar = std::get_if<MemberValue::Scalar>(&member.value)) {
    return std::visit(ScalarText{}, *scalar);
  }
  std::string list;
  for (const auto& scalar : std::get<1>(member.value)) {
    if (!list.empty()) list += ", ";
    list += std::visit(ScalarText{}, scalar);
  }
  return "[" + list + "]";
}

void writeMembers(std::ostream& out, const std::vector<MemberValue>& members) {
  std::size_t width = 0;
  for (const MemberValue& member : members)
    width = std::max(width, member.name.size());
  for (const MemberValue& member : members) {
    out << member.name << std::string(width - member.name.size() + 2, ' ')
        << terminalText(memberText(member)) << '\n';
  }
}

/// A record with what was asked of it.
struct RecordFacts {
  std::string bytes;
  const RecordClass* recordClass = nullptr;
  std::vector<MemberValue> members;
  std::string trouble;
};

RecordFacts readFacts(const InspectOptions& options) {
  RecordFacts facts;
  if (!options.recordClass.empty()) facts.recordClass = &wantedClass(options.recordClass);
  const bool control = equalIgnoringCase(options.name, files::kControlFile);
  facts.bytes = control ? readControlBlock(options.record)
                        : readRecord(openLogicalFile(options.name), options.record);
  if (facts.recordClass == nullptr) return facts;
  const std::string extension(facts.recordClass->extensionFile);
  if (!extension.empty() && !equalIgnoringCase(extension, options.name)) {
    // A record without its extension still has its first members.
    try {
      facts.bytes += readRecord(openLogicalFile(extension), options.record);
    } catch (const UsageError& error) {
      facts.trouble = error.what();
    } catch (const RunTimeError& error) {
      facts.trouble = error.description();
    }
  }
  const auto record = facts.recordClass->make();
  record->Unpack(facts.bytes);
  facts.members = record->members();
  return facts;
}

void writeJsonRecord(std::ostream& out, const InspectOptions& options, const RecordFacts& facts) {
  Json document = {
      {"name", jsonText(options.name)}, {"record", options.record}, {"length", facts.bytes.size()}};
  if (facts.recordClass != nullptr) {
    document["class"] = facts.recordClass->name;
    Json members = Json::object();
    for (const MemberValue& member : facts.members)
      members[member.name] = memberJson(member);
    document["members"] = std::move(members);
  }
  if (facts.recordClass == nullptr || options.hex) document["hex"] = hexText(facts.bytes);
  writeJson(out, document);
}

void writeTextRecord(std::ostream& out, const InspectOptions& options, const RecordFacts& facts) {
  if (facts.recordClass != nullptr) writeMembers(out, facts.members);
  if (facts.recordClass != nullptr && options.hex) out << '\n';
  if (facts.recordClass == nullptr || options.hex) writeDump(out, facts.bytes);
}

}  // namespace

void InspectRecordCommand::addOptions(CLI::App& app) {
  app.add_option("NAME", options_.name,
                 "Logical name of the file, such as CUSTL; FILE0 for a control block")
      ->required();
  app.add_option("NUMBER", options_.record, "Record number from 1; a block of FILE0 from 0")
      ->required();
  app.add_option("--as", options_.recordClass, "Show the members of this record class")
      ->type_name("CLASS");
  app.add_flag("--hex", options_.hex, "Show the bytes as well as the members");
  InspectCommand::addOptions(app);
}

int InspectRecordCommand::run(const Console& console) {
  Session session(options_.store, console);
  session.openEngine();
  const RecordFacts facts = readFacts(options_);
  if (options_.json) {
    writeJsonRecord(console.out, options_, facts);
  } else {
    writeTextRecord(console.out, options_, facts);
  }
  if (!facts.trouble.empty()) console.complain(facts.trouble);
  session.complain();
  return facts.trouble.empty() && session.failures().empty() ? 0 : 1;
}

}  // namespace dg
