#include "history/snapshot.h"

#include "engine/state.h"
#include "platform/text.h"
#include "platform/unopened_files.h"
#include "shell/recap_figures.h"

namespace dg {

namespace {

/// A name out of the catalog file, which anybody may have written: one line of UTF-8.
std::string nameText(std::string_view bytes) {
  return utf8FromBytes(trim(withoutControls(bytes)));
}

}  // namespace

StoreKey currentStore() {
  if (!SystemInfo) return {};
  return {.server = nameText(SystemInfo->mUNCDrive), .directory = nameText(SystemInfo->mDirectory)};
}

bool canBeKept(const frmTRVN& main) {
  return !main.loading() && main.lostShare().empty() && unopenedFiles().count == 0;
}

std::vector<KeptFigure> recapSnapshot(const frmTRVN& main) {
  const View* recap = main.view("frmRecap");
  std::vector<KeptFigure> result;
  for (const RecapFigure& figure : recapFigures()) {
    const View* view = main.view(figure.view);
    if (view != nullptr && view->incomplete()) continue;
    if (const auto value = figureValue(recap, figure.figure)) {
      result.push_back({.figure = {FigureSource::kRecap, std::string(figure.name)},
                        .amount = *value,
                        .count = std::nullopt});
    }
  }
  return result;
}

std::vector<KeptFigure> attentionSnapshot(std::span<const KindResult> kinds) {
  std::vector<KeptFigure> result;
  for (const KindResult& kind : kinds) {
    if (!kind.isWhole()) continue;
    result.push_back({.figure = {FigureSource::kAttention, std::string(entryOf(kind.kind).name)},
                      .amount = kind.amount,
                      .count = static_cast<std::int64_t>(kind.rows.size())});
  }
  return result;
}

}  // namespace dg
