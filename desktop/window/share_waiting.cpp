#include "desktop/window/share_waiting.h"

#include <QCoreApplication>
#include <chrono>
#include <utility>

namespace dg {

namespace {

/// A share that is merely slow is let answer.
constexpr std::chrono::seconds kPatienceAtTheEnd(1);

}  // namespace

bool ShareWaiting::isEndWished_ = false;

ShareWaiting::ShareWaiting()
    : former_(setWhileWaiting([](std::chrono::milliseconds waited) {
        QCoreApplication::processEvents();
        return !isEndWished_ || waited < kPatienceAtTheEnd;
      })) {
  isEndWished_ = false;
}

ShareWaiting::~ShareWaiting() {
  setWhileWaiting(std::move(former_));
}

}  // namespace dg
