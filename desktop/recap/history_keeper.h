#pragma once

#include <QObject>
#include <QString>
#include <optional>
#include <vector>

#include "history/history.h"
#include "history/recap_changes.h"

namespace dg {

class TodaysWork;

/// The history of the store on show. Nothing is kept, and no file made, before the user asks for
/// it; from then on every load and refresh keeps the day. A history that fails is told, and the
/// program goes on without it.
class HistoryKeeper : public QObject {
  Q_OBJECT

 public:
  HistoryKeeper(const frmTRVN& main, const TodaysWork& work, QObject* parent = nullptr);

  /// Whether this user has asked for it.
  static bool isKeeping();
  /// Keeps what is on show, and from now on.
  void start();
  void stop();
  /// Keeps the day when the user has asked for it; to be called after each load and refresh.
  void keepDay();
  /// Deletes all days of the store.
  void forget();

  /// The history that is there, whoever has kept it; null without one.
  const History* history() const { return history_ ? &*history_ : nullptr; }
  const StoreKey& store() const { return store_; }
  /// What stands beside the recap's figures; empty without a history.
  std::vector<RecapChange> changes() const;
  /// Where it is kept, or would be.
  static QString fileName();
  /// Why the last operation failed; empty when it did not.
  const QString& trouble() const { return trouble_; }

 Q_SIGNALS:
  void changed();

 private:
  void open();
  /// Does what raises HistoryError, and tells it.
  template <class Body>
  void attempt(Body body);

  const frmTRVN& main_;
  const TodaysWork& work_;
  StoreKey store_;
  std::optional<History> history_;
  QString trouble_;
};

}  // namespace dg
