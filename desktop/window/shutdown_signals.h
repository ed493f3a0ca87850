#pragma once

#include <QObject>

class QSocketNotifier;

namespace dg {

/// Turns the system's requests to end (log-off, shutdown, Ctrl+C in a terminal) into a signal in
/// the event loop, so that the program ends in its own way. Does nothing on Windows, where a
/// log-off closes windows. One at a time.
class ShutdownSignals : public QObject {
  Q_OBJECT

 public:
  ShutdownSignals();
  ~ShutdownSignals() override;

 Q_SIGNALS:
  void requested();

 private:
  QSocketNotifier* notifier_ = nullptr;
};

}  // namespace dg
