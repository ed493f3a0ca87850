#pragma once

#include <ostream>
#include <span>
#include <string>
#include <vector>

#include "tools/dgtool/session.h"

namespace dg {

/// What a report is made of: views that have loaded, and the run that loaded them.
struct ReportInput {
  const Session& session;
  const frmTRVN& main;
  const std::vector<View*>& views;  ///< those to report, in load order
  bool details;                     ///< also the windows that the rows of the views open
  const std::string& argument;      ///< what stands behind the format's option
  std::ostream& out;
};

/// A way to write a report. A new one is a source with its writer, and a line in the table of
/// `report_formats.cpp`.
struct ReportFormat {
  const char* option;    ///< that asks for it, such as "--json"; empty for the one without
  const char* argument;  ///< kind of the option's argument; empty for none
  const char* description;
  bool hasDetails;   ///< whether it can show the windows behind the rows
  bool hasMessages;  ///< whether it shows message boxes and failures, which others leave to the
                     ///< error stream; it is then written for a store that has no views, too
  /// Raises UsageError for an argument that is in vain, before any work is done; null for none.
  void (*check)(const std::string& argument);
  /// Returns whether all windows were complete, those behind the rows included. Raises UsageError
  /// when the argument names nothing, or the report cannot be written.
  bool (*write)(const ReportInput& input);
};

/// All formats; the first is the one that needs no option.
std::span<const ReportFormat> reportFormats();

/// Whether all views are complete.
bool areComplete(const std::vector<View*>& views);

}  // namespace dg
