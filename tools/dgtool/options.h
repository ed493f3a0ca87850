#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/values/date.h"

namespace dg {

/// What stands in for the environment of the desktop program. Empty: as the environment has it.
struct StoreOptions {
  std::string store;      ///< an example store: share/, temp/ and config/ in one folder
  std::string temp;       ///< directory of the catalog file and the operation log
  std::string shareRoot;  ///< folder that holds server/share/...
  std::string computer;   ///< this workstation's name
  std::string directory;  ///< store directory in place of the catalog's
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

/// A moment such as "2026-11-24T10:30:00", also with a blank for the "T" or without seconds, or a
/// day alone. Nothing when the text is no such moment.
std::optional<Date> parseMoment(const std::string& text);

/// The parts of "VIEW.GRID:INDEX", or nothing.
std::optional<HeadClick> parseHeadClick(const std::string& text);

/// A whole number from 0 to the largest of 64 bits, in digits; nothing when the text is none.
std::optional<std::uint64_t> parseSeed(const std::string& text);

/// The bytes of hexadecimal text, blanks between bytes allowed; nothing when it is none.
std::optional<std::string> parseHex(const std::string& text);

}  // namespace dg
