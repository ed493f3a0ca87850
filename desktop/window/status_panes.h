#pragma once

#include <QList>
#include <QStatusBar>

#include "desktop/window/control_binding.h"
#include "forms/simple_controls.h"

class QLabel;

namespace dg {

/// Draws a StatusBar: its panels side by side, the last one as wide as it can be.
class StatusPanes : public QStatusBar {
  Q_OBJECT

 public:
  explicit StatusPanes(StatusBar& bar, QWidget* parent = nullptr);

  /// Tells where an export stands, with a link that opens it; until the next one.
  void showExport(const QString& file);

 private:
  void update();
  void addExportPane();

  StatusBar& bar_;
  QList<QLabel*> panes_;
  QLabel* export_ = nullptr;
  ControlBinding binding_;
};

}  // namespace dg
