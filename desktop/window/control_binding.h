#pragma once

#include <QWidget>
#include <functional>
#include <utility>

#include "forms/control.h"

namespace dg {

/// Keeps a widget like its control: visibility, whether it is enabled, and what `update` sets.
/// A member of the widget, so that the observation ends with it. The control outlives the widget.
class ControlBinding {
 public:
  ControlBinding(Control& control, QWidget& widget, std::function<void()> update)
      : update_(std::move(update)),
        changed_(control.changed.connect([this, &control, &widget] { apply(control, widget); })),
        refreshed_(control.refreshed.connect([this, &control, &widget] {
          apply(control, widget);
          widget.repaint();
        })) {
    widget.setObjectName(QString::fromStdString(control.name()));
  }
  ControlBinding(const ControlBinding&) = delete;
  ControlBinding& operator=(const ControlBinding&) = delete;

  /// Brings the widget up to date. Its constructor calls this when all its members are there.
  void apply(const Control& control, QWidget& widget) const {
    update_();
    if (widget.isHidden() == control.visible() && widget.parentWidget() != nullptr) {
      widget.setVisible(control.visible());
    }
    if (widget.isEnabled() != control.enabled()) widget.setEnabled(control.enabled());
  }

 private:
  std::function<void()> update_;
  Connection changed_;
  Connection refreshed_;
};

}  // namespace dg
