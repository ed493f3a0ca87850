// docs/records.md against the record classes, and docs/formats.md against the layouts of what no
// class covers: each field is a row there, and no row tells of another.
#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include "engine/keyed_index.h"
#include "engine/links.h"
#include "engine/record_zero.h"
#include "records/control_file.h"
#include "records/file_names.h"
#include "records/ledger.h"
#include "records/page_record.h"
#include "records/vendor_document.h"

namespace dg {
namespace {

std::string readDocument(const char* name) {
  std::ifstream file(std::string(DG_SOURCE_DIR "/docs/") + name);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::string filesOf(const RecordClass& type) {
  if (type.mainFile.empty()) return "Read from no file of its own.";
  std::string text = "`" + std::string(type.mainFile) + "`";
  if (!type.extensionFile.empty()) text += " + `" + std::string(type.extensionFile) + "`";
  return text;
}

std::string layoutsOf(const RecordClass& type) {
  std::ostringstream out;
  const std::vector<FieldPlace> places = type.make()->places();
  const bool several =
      std::ranges::any_of(places, [](const FieldPlace& place) { return !place.layout.empty(); });
  out << "## " << type.name << "\n\n" << filesOf(type) << "\n\n";
  out << "| Position | Size | Form | Member |" << (several ? " Layout |" : "") << " |\n";
  out << "|---|---|---|---|" << (several ? "---|" : "") << "---|\n";
  for (const FieldPlace& place : places) {
    out << "| " << place.position << " | " << place.width << " | " << place.form << " | "
        << (place.member.empty() ? "" : "`" + place.member + "`") << " |";
    if (several) out << ' ' << place.layout << " |";
    out << (place.reads && place.writes ? ""
            : place.reads               ? " read only"
                                        : " written only")
        << " |\n";
  }
  out << '\n';
  return out.str();
}

TEST(RecordLayouts, AreThoseOfTheDocument) {
  const std::string path = DG_SOURCE_DIR "/docs/records.md";
  const std::string document = readDocument("records.md");
  const std::string introduction = document.substr(0, document.find("\n## ") + 1);
  std::string expected = introduction;
  for (const RecordClass& type : recordClasses())
    expected += layoutsOf(type);
  expected.pop_back();
  if (std::getenv("DG_WRITE_FIGURES") != nullptr) {
    std::ofstream(path) << expected;
    GTEST_SKIP() << "written anew";
  }
  std::istringstream told(document);
  std::istringstream are(expected);
  std::string line;
  for (std::string wanted; std::getline(are, wanted);) {
    std::getline(told, line);
    ASSERT_EQ(line, wanted);
  }
  EXPECT_EQ(document.size(), expected.size());
}

/// A field as a table has it: where it begins, from 1, its bytes, and its opcode.
struct Row {
  Row(NumberField field) : Row(field.position, field.width(), std::string(1, field.opcode)) {}
  Row(TextField field) : Row(field.position, field.width, "") {}
  Row(int position, int width, const std::string& opcode)
      : text(std::to_string(position) + ' ' + std::to_string(width) + ' ' + opcode + '\n') {}
  std::string text;
};

std::vector<std::string> cellsOf(const std::string& line) {
  std::vector<std::string> cells;
  std::istringstream rest(line.substr(1));
  for (std::string cell; std::getline(rest, cell, '|');) {
    std::erase(cell, '`');
    const std::size_t begin = cell.find_first_not_of(' ');
    cells.push_back(begin == std::string::npos
                        ? ""
                        : cell.substr(begin, cell.find_last_not_of(' ') + 1 - begin));
  }
  return cells;
}

/// The rows of the tables under a heading of docs/formats.md whose meaning is known.
std::string toldUnder(const std::string& heading) {
  const std::string document = readDocument("formats.md");
  const std::size_t begin = document.find("\n" + heading + "\n");
  if (begin == std::string::npos) return "no such heading";
  std::istringstream section(document.substr(begin + 1, document.find("\n#", begin + 1) - begin));
  std::string told;
  int first = -1;  // the number of a table's first byte; none: its rows are no fields
  for (std::string line; std::getline(section, line);) {
    if (!line.starts_with('|')) {
      first = -1;
      continue;
    }
    const std::vector<std::string> cells = cellsOf(line);
    if (cells[0].starts_with("Offset")) first = 0;
    if (cells[0].starts_with("Position")) first = 1;
    const auto isNumber = [](const std::string& cell) {
      return !cell.empty() && cell.find_first_not_of("0123456789") == std::string::npos;
    };
    if (first < 0 || !isNumber(cells[0]) || !isNumber(cells[1]) || cells.back().starts_with('?'))
      continue;
    std::string opcode = cells.size() > 3 ? cells[2] : "";
    if (opcode.starts_with("date ")) opcode = opcode.substr(5);
    told += Row(std::stoi(cells[0]) + 1 - first, std::stoi(cells[1]), opcode).text;
  }
  return told;
}

TEST(FileLayouts, AreThoseOfTheDocument) {
  using namespace vendor_document;
  struct Section {
    const char* heading;
    std::vector<Row> rows;
  };
  const Section sections[] = {
      {"### Link table", {link_entry::kLinkName, link_entry::kResolutionName}},
      {"### Directory file",
       {DirectoryEntry::kName, DirectoryEntry::kFlags, DirectoryEntry::kStartBlock,
        DirectoryEntry::kRecordLength, DirectoryEntry::kType, DirectoryEntry::kCapacity}},
      {"### Record zero",
       {record_zero::kMarker, record_zero::kFreeHead, record_zero::kHighUsedRecord,
        record_zero::kActiveCount}},
      {"### Free chain", {kRecordInUse, kNextFreeRecord}},
      {"### Chart of accounts: `CHRTL`",
       {kRecordInUse, chart_record::kCompany, chart_record::kAccount, chart_record::kKind,
        chart_record::kDescription}},
      {"### Ledger details: `GLDTL`",
       {kRecordInUse, ledger_detail::kAccount, ledger_detail::kSign, ledger_detail::kMillions,
        ledger_detail::kAmount}},
      {"### Vendors: `VNDRL`", {vendor_record::kName}},
      {"### Header",
       {index_header::kEntryLength, index_header::kEntriesPerNode, index_header::kLastBlock,
        index_header::kAlwaysTwo, index_header::kRoot, index_header::kFirstFill,
        index_header::kDuplicateKeys}},
      {"### Node", {index_node::kEntryCount, index_node::kNextLeaf}},
      {"### Cursor",
       {{1, 16, "C"},
        index_cursor::kCurrentEntry,
        index_cursor::kPathDepth,
        {index_cursor::kNodePath.position, 2 * index_cursor::kMaxDepth, "C"},
        {index_cursor::kNode, kBlockSize, ""}}},
      {"## Page chains",
       {page_record::kRequest, page_record::kLink, page_record::kNumber, page_record::kLineCount}},
      {"### Line",
       {page_line::kCode, page_line::kPart, page_line::kDashMask, page_line::kDescription,
        page_line::kQuantity, page_line::kNet, page_line::kCost}},
      {"## Document files",
       {kKeyName, kKeyStatus, kNumber, kVendor, kDate, kDropShipInvoice, kTotal, kLineKind,
        kProductLine, kPart, kQuantity, kUnitCost}},
  };
  for (const Section& section : sections) {
    std::string rows;
    for (const Row& row : section.rows)
      rows += row.text;
    EXPECT_EQ(toldUnder(section.heading), rows) << section.heading;
  }
}

std::string rangeText(const control_file::Blocks& blocks) {
  return std::to_string(blocks.first) + " to " + std::to_string(blocks.last);
}

/// Elements of a list: its first position, the step from one to the next, and how it is counted.
std::string listText(int position, int width, const char* count) {
  return std::to_string(position) + " + " + std::to_string(width) + count + " | " +
         std::to_string(width) + " each";
}

TEST(FileLayouts, ControlFileIsThatOfTheDocument) {
  using namespace control_file;
  const auto block = [](std::int32_t number) { return "| " + std::to_string(number) + " | "; };
  const TextField result = callResultName(1);
  const TextField status = jobStatusName(1);
  std::string captions;
  for (const TextField& caption : kUnitCaptions)
    captions += (captions.empty() ? "" : ", ") + std::to_string(caption.position);
  const std::string rows[] = {
      block(kCompanyBlock) + std::to_string(kStoreName.position) + " | " +
          std::to_string(kStoreName.width) + " |",
      block(kUnitCaptionBlock) + captions + " | " + std::to_string(kUnitCaptions[0].width) +
          " each |",
      "| " + rangeText(kSavedInvoices) + " |",
      block(kOptionBlock) + "n | 1 |",
      block(kCallResultBlock) + listText(result.position, result.width, "(n - 1)") + " |",
      block(kJobStatusBlock) + listText(status.position, status.width, "(n - 1)") + " |",
      "| " + rangeText(kJobs[0]) + ", " + rangeText(kJobs[1]) + " | " +
          listText(jobSlot(0).position, jobSlot(0).width(), "k") + " |",
  };
  const std::string document = readDocument("formats.md");
  for (const std::string& row : rows)
    EXPECT_NE(document.find("\n" + row), std::string::npos) << row;
}

}  // namespace
}  // namespace dg
