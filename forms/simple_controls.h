#pragma once

#include <functional>
#include <string>
#include <vector>

#include "forms/control.h"

namespace dg {

/// A push button; "&" in its caption marks the mnemonic.
class Button final : public Control {
 public:
  Button(std::string name, std::string caption)
      : Control(std::move(name)), caption_(std::move(caption)) {}
  const std::string& caption() const { return caption_; }

  std::function<void()> onClick;
  void click() {
    if (onClick && enabled()) dispatchEvent(onClick);
  }

 private:
  std::string caption_;
};

/// A list from which the user picks one text.
class ComboBox final : public Control {
 public:
  using Control::Control;
  const std::vector<std::string>& items() const { return items_; }
  void AddItem(std::string item) {
    items_.push_back(std::move(item));
    changed.emit();
  }
  const std::string& text() const { return text_; }
  /// Sets the text without a click event.
  void setText(std::string text) {
    text_ = std::move(text);
    changed.emit();
  }

  std::function<void()> onClick;
  /// The user picks the item at a 0-based index.
  void select(std::size_t index) {
    if (index >= items_.size()) return;
    setText(items_[index]);
    if (onClick) dispatchEvent(onClick);
  }

 private:
  std::vector<std::string> items_;
  std::string text_;
};

/// A bar from 0 to 100.
class ProgressBar final : public Control {
 public:
  using Control::Control;
  double value() const { return value_; }
  void setValue(double value) {
    value_ = value;
    changed.emit();
  }

 private:
  double value_ = 0;
};

/// A read-only text area.
class TextArea final : public Control {
 public:
  using Control::Control;
  const std::string& text() const { return text_; }
  void setText(std::string text) {
    text_ = std::move(text);
    changed.emit();
  }

 private:
  std::string text_;
};

/// A bar of panels along a window's foot.
class StatusBar final : public Control {
 public:
  StatusBar(std::string name, std::size_t panels) : Control(std::move(name)), panels_(panels) {}
  const std::vector<std::string>& panels() const { return panels_; }
  void setPanel(std::size_t index, std::string text) {
    panels_.at(index) = std::move(text);
    changed.emit();
  }

 private:
  std::vector<std::string> panels_;
};

}  // namespace dg
