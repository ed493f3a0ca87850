#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "forms/signal.h"

namespace dg {

/// Text colours of controls, as the system numbers them (0xBBGGRR).
inline constexpr std::int32_t kBlack = 0;
inline constexpr std::int32_t kRed = 255;

/// What all controls share. A control is a plain object: the desktop draws it and follows its
/// signals, tests and the command-line tool just look.
class Control {
 public:
  /// `name` is the form's name for it; elements of a control array are "name(index)".
  explicit Control(std::string name) : name_(std::move(name)) {}
  virtual ~Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  const std::string& name() const { return name_; }

  bool visible() const { return visible_; }
  void setVisible(bool visible) {
    visible_ = visible;
    changed.emit();
  }
  bool enabled() const { return enabled_; }
  void setEnabled(bool enabled) {
    enabled_ = enabled;
    changed.emit();
  }

  /// Asks for an immediate repaint, although the thread goes on working.
  void Refresh() const { refreshed.emit(); }

  Signal<> changed;    ///< anything that shows has changed
  Signal<> refreshed;  ///< draw at once

 private:
  std::string name_;
  bool visible_ = true;
  bool enabled_ = true;
};

/// Runs the body of an event handler. A run-time error that leaves it shows the message box
/// "Run-time error 'N':" with the description, and the program goes on.
void dispatchEvent(const std::function<void()>& body);

}  // namespace dg
