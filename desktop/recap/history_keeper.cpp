#include "desktop/recap/history_keeper.h"

#include <QDir>
#include <algorithm>
#include <iterator>

#include "desktop/recap/todays_work.h"
#include "desktop/window/text.h"
#include "desktop/window/user_settings.h"
#include "history/snapshot.h"
#include "platform/clock.h"
#include "platform/values/run_time_error.h"

namespace dg {

HistoryKeeper::HistoryKeeper(const frmTRVN& main, const TodaysWork& work, QObject* parent)
    : QObject(parent), main_(main), work_(work) {
  open();
}

template <class Body>
void HistoryKeeper::attempt(Body body) {
  trouble_.clear();
  try {
    body();
  } catch (const std::exception& error) {
    trouble_ = QString::fromUtf8(error.what());
    history_.reset();
  }
}

void HistoryKeeper::open() {
  store_ = currentStore();
  attempt([this] {
    history_.reset();
    if (!defaultHistoryFile().empty()) history_ = History::open(defaultHistoryFile());
  });
}

bool HistoryKeeper::isKeeping() {
  return UserSettings::keepsHistory();
}

void HistoryKeeper::start() {
  UserSettings::setKeepsHistory(true);
  keepDay();
}

void HistoryKeeper::stop() {
  UserSettings::setKeepsHistory(false);
  Q_EMIT changed();
}

void HistoryKeeper::keepDay() {
  open();
  const bool usable = trouble_.isEmpty() && !store_.directory.empty() && canBeKept(main_);
  if (isKeeping() && usable) {
    attempt([this] {
      const Date today(now().days());
      std::vector<KeptFigure> figures = recapSnapshot(main_);
      // The user's own limits do not count here: days that are compared need the same ones.
      std::ranges::move(attentionSnapshot(attentionOf(work_.items(), today)),
                        std::back_inserter(figures));
      if (figures.empty()) return;
      if (!history_) history_ = History::create(defaultHistoryFile());
      history_->keep(store_, today, figures);
    });
  }
  Q_EMIT changed();
}

void HistoryKeeper::forget() {
  if (!history_) return;
  attempt([this] { history_->forget(store_); });
  Q_EMIT changed();
}

std::vector<RecapChange> HistoryKeeper::changes() const {
  if (!history_) return {};
  try {
    return recapChanges(*history_, store_, main_, now());
  } catch (const HistoryError&) {
    // The page tells what is wrong with the file; the recap is as it is without one.
    return {};
  }
}

QString HistoryKeeper::fileName() {
  return QDir::toNativeSeparators(fileNameText(defaultHistoryFile()));
}

}  // namespace dg
