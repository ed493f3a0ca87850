#pragma once

#include <functional>
#include <string>

#include "forms/control.h"

namespace dg {

/// What a label is for: decides how prominently it is drawn, and whether it goes on paper.
enum class LabelRole {
  kValue,
  kCaption,
  kHeading,
  kTitle,
  kNote,  ///< small print about the figures or the program
  kHint,  ///< how to use the window; means nothing on paper
};

/// A text on a form. Captions are Windows-1252 bytes; "&&" stands for one "&".
class Label final : public Control {
 public:
  explicit Label(std::string name, std::string caption = {}, LabelRole role = LabelRole::kValue)
      : Control(std::move(name)), caption_(std::move(caption)), role_(role) {}

  const std::string& caption() const { return caption_; }
  void setCaption(std::string caption) {
    caption_ = std::move(caption);
    inError_ = false;
    changed.emit();
  }
  /// Shows, in red, a text in place of a figure that could not be worked out.
  void setError(std::string text) {
    foreColor_ = kRed;
    caption_ = std::move(text);
    inError_ = true;
    changed.emit();
  }
  /// Whether the caption is such a text.
  bool inError() const { return inError_; }
  std::int32_t foreColor() const { return foreColor_; }
  void setForeColor(std::int32_t color) {
    foreColor_ = color;
    changed.emit();
  }
  LabelRole role() const { return role_; }

  std::function<void()> onClick;  ///< empty: a click does nothing
  void click() {
    if (onClick) dispatchEvent(onClick);
  }

 private:
  std::string caption_;
  LabelRole role_;
  std::int32_t foreColor_ = kBlack;
  bool inError_ = false;
};

}  // namespace dg
