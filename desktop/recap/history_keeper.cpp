#include "desktop/recap/history_keeper.h"

#include <QDir>
#include <QFile>

#include "desktop/window/user_settings.h"
#include "history/snapshot.h"
#include "platform/clock.h"
#include "platform/values/run_time_error.h"

namespace dg {

HistoryKeeper::HistoryKeeper(const frmTRVN& main, QObject* parent) : QObject(parent), main_(main) {
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
      const std::vector<KeptFigure> figures = recapSnapshot(main_);
      if (figures.empty()) return;
      if (!history_) history_ = History::create(defaultHistoryFile());
      history_->keep(store_, Date(now().days()), figures);
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
  const std::u16string name = defaultHistoryFile().u16string();
  return QDir::toNativeSeparators(QString::fromStdU16String(name));
}

}  // namespace dg
