#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/values/date.h"

namespace dg {

/// What stands in for the environment of the desktop program. Empty: as the environment has it.
struct StoreOptions {
  std::string store;      ///< an example store: share/, temp/ and config/ in one folder
  std::string temp;       ///< directory of the catalog file and the operation log
  std::string shareRoot;  ///< folder that holds server/share/...
  std::string computer;   ///< this workstation's name
  std::string settings;   ///< ini file of the per-user settings
  std::optional<Date> asOf;
  bool noLog = false;
};

/// A click on a column head, "VIEW.GRID:INDEX".
struct HeadClick {
  std::string view;
  std::string grid;
  int column = 0;
};

enum class ReportFormat { kText, kJson, kCsv, kXlsx };

struct ReportOptions {
  StoreOptions store;
  std::vector<std::string> views;  ///< empty: all
  bool refresh = false;
  std::vector<HeadClick> clicks;
  bool details = false;
  ReportFormat format = ReportFormat::kText;
  std::string csvGrid;   ///< "GRID" or "VIEW.GRID"
  std::string xlsxFile;  ///< path of the workbook
};

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

struct CheckCommandOptions {
  StoreOptions store;
  bool quick = false;
  bool json = false;
  int limit = 20;  ///< findings shown of each file
};

struct SampleCommandOptions {
  std::string folder;
  std::uint64_t seed = 1;
  int scale = 1;
  std::optional<Date> asOf;
  bool warrantySegments = false;
};

/// A moment such as "2026-11-24T10:30:00", also with a blank for the "T" or without seconds, or a
/// day alone. Nothing when the text is no such moment.
std::optional<Date> parseMoment(const std::string& text);

/// The parts of "VIEW.GRID:INDEX", or nothing.
std::optional<HeadClick> parseHeadClick(const std::string& text);

/// The bytes of hexadecimal text, blanks between bytes allowed; nothing when it is none.
std::optional<std::string> parseHex(const std::string& text);

}  // namespace dg
