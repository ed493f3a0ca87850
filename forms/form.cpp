#include "forms/form.h"

#include <utility>

namespace dg {

namespace {

Presenter& silentPresenter() {
  static Presenter silent;
  return silent;
}

Presenter* currentPresenter = nullptr;

}  // namespace

Form::Form(std::string name, std::string caption)
    : name_(std::move(name)), caption_(std::move(caption)) {}

void Form::setCaption(std::string caption) {
  caption_ = std::move(caption);
  changed.emit();
}

Control* Form::find(std::string_view name) const {
  const auto found = byName_.find(name);
  return found == byName_.end() ? nullptr : found->second;
}

void Form::Show() {
  visible_ = true;
  presenter().show(*this);
}

void Form::Hide() {
  visible_ = false;
  presenter().hide(*this);
}

void Form::ShowModal() {
  visible_ = true;
  presenter().showModal(*this);
  visible_ = false;
}

void Form::SetFocus() {
  presenter().setFocus(*this);
}

void Form::Unload() {
  visible_ = false;
  presenter().unload(*this);
  unloaded.emit();
}

void Form::setBounds(const Bounds& bounds) {
  bounds_ = bounds;
  changed.emit();
}

void Form::markIncomplete() {
  incomplete_ = true;
  changed.emit();
}

void Form::setMousePointer(int pointer) {
  mousePointer_ = pointer;
  changed.emit();
}

std::string elementName(std::string_view array, int index) {
  return std::string(array) + "(" + std::to_string(index) + ")";
}

Presenter& presenter() {
  return currentPresenter != nullptr ? *currentPresenter : silentPresenter();
}

void setPresenter(Presenter* presenter) {
  currentPresenter = presenter;
}

}  // namespace dg
