#include "records/open/open_work.h"

#include <utility>

#include "platform/values/trap.h"

namespace dg {

namespace {

OpenWorkObserver*& currentObserver() {
  static OpenWorkObserver* observer = nullptr;
  return observer;
}

}  // namespace

OpenWorkObserver* setOpenWorkObserver(OpenWorkObserver* observer) {
  return std::exchange(currentObserver(), observer);
}

OpenWorkLoad::OpenWorkLoad() {
  if (currentObserver() != nullptr) currentObserver()->loadBegins();
}

OpenWorkLoad::~OpenWorkLoad() {
  if (currentObserver() != nullptr) currentObserver()->loadEnds();
}

OpenWorkReport::OpenWorkReport(OpenFamily family) : family_(family), observer_(currentObserver()) {
  if (observer_ != nullptr) observer_->begin(family_);
}

void OpenWorkReport::tell(const std::function<void()>& telling) {
  if (observer_ == nullptr) return;
  trapErrors(telling, [this](const RunTimeError& error) {
    std::exchange(observer_, nullptr)->fail(family_, error);
  });
}

void OpenWorkReport::add(const std::function<OpenWork()>& make) {
  tell([&] { observer_->add(family_, make()); });
}

void OpenWorkReport::end() {
  tell([this] { observer_->end(family_); });
}

}  // namespace dg
