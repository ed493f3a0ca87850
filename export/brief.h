#pragma once

#include <optional>
#include <string>
#include <vector>

#include "history/figure_history.h"
#include "history/recap_changes.h"
#include "insight/attention.h"
#include "shell/store_recap.h"

namespace dg {

/// What the morning report tells of one store. Texts are bytes of the code page.
struct BriefStore {
  StoreRecap recap;
  std::vector<std::string> troubles;  ///< what is wrong with the figures, a sentence each
  std::vector<RecapChange> changes;
  std::vector<FigureHistory> lines;  ///< figures of which more than one day is kept
  std::vector<KindResult> kinds;
  std::vector<Ageing> ageing;
};

/// The morning report.
struct Brief {
  Date moment;
  std::vector<BriefStore> stores;
  bool isGroup = false;  ///< whether totals stand on top, and a section a store below
};

/// Recap, troubles, and what the history knows of the store on show; `history` may be null. A
/// history that cannot be read is a trouble.
void takeFigures(BriefStore& store, const frmTRVN& main, const History* history, Date today);

/// How lines over days are drawn: mail programs leave drawings out.
enum class BriefLines { kDrawings, kCharacters };

/// One self-contained page: no script, nothing fetched, readable from 360 pixels on and on paper.
std::string briefPage(const Brief& brief, BriefLines lines);
/// The same in plain text, lines of at most 78 characters where texts allow.
std::string briefText(const Brief& brief);
/// "Morning report of FENHOLT, 11/24/26".
std::string briefTitle(const Brief& brief);

}  // namespace dg
