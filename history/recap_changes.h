#pragma once

#include <optional>
#include <string>
#include <vector>

#include "history/changes.h"
#include "history/history.h"
#include "shell/main_window.h"
#include "shell/recap_figures.h"

namespace dg {

/// Whether a change is plainly good or bad for the business.
enum class ChangeTone { kNeutral, kGood, kBad };

/// What stands beside a figure of the recap.
struct RecapChange {
  Figure figure;
  Change change;
  ChangeTone tone;
};

/// The changes of the figures that the recap shows now. Takings and the month so far are compared
/// with the same day of last month, all others with the last kept day before today. Days after
/// today, which a clock that was wrong has left, count for nothing. Raises HistoryError.
std::vector<RecapChange> recapChanges(const History& history, const StoreKey& store,
                                      const frmTRVN& main, Date today);

/// "▲ $1,234 (+2.3%)" as UTF-8: an arrow, the size in whole dollars (cents of less than 100), and
/// the per cent. Of a rate "▲ 2.97 points". "no change" where nothing has changed.
std::string changeLabel(const RecapChange& change);

}  // namespace dg
