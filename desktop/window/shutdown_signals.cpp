#include "desktop/window/shutdown_signals.h"

#ifndef Q_OS_WIN

#include <QSocketNotifier>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace dg {

namespace {

constexpr int kSignals[] = {SIGTERM, SIGINT, SIGHUP};

/// A signal handler may do little more than write; the event loop reads the other end.
int pipeEnds[2] = {-1, -1};

void note(int) {
  const char byte = 1;
  if (::write(pipeEnds[1], &byte, 1) < 0) return;  // full: a request is waiting already
}

}  // namespace

ShutdownSignals::ShutdownSignals() {
  if (::pipe(pipeEnds) != 0) return;
  for (const int end : pipeEnds) {
    ::fcntl(end, F_SETFD, FD_CLOEXEC);
    ::fcntl(end, F_SETFL, O_NONBLOCK);
  }
  notifier_ = new QSocketNotifier(pipeEnds[0], QSocketNotifier::Read, this);
  connect(notifier_, &QSocketNotifier::activated, this, [this] {
    char bytes[16];
    while (::read(pipeEnds[0], bytes, sizeof bytes) > 0) {
    }
    Q_EMIT requested();
  });
  for (const int signal : kSignals)
    std::signal(signal, &note);
}

ShutdownSignals::~ShutdownSignals() {
  for (const int signal : kSignals)
    std::signal(signal, SIG_DFL);
  delete notifier_;
  for (int& end : pipeEnds) {
    if (end >= 0) ::close(end);
    end = -1;
  }
}

}  // namespace dg

#else

namespace dg {

ShutdownSignals::ShutdownSignals() = default;
ShutdownSignals::~ShutdownSignals() = default;

}  // namespace dg

#endif
