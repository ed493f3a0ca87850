#pragma once

#include <QWidget>

#include "desktop/window/control_binding.h"
#include "forms/form.h"

class QLabel;
class QLineEdit;

namespace dg {

class GridActions;
class GridView;

/// A grid on a sheet: the table, and over it its heading, how many rows there are, a filter, and
/// the menus for export and print.
class GridPanel : public QWidget {
  Q_OBJECT

 public:
  /// `form`: the window that the grid stands in; its labels go on paper and into files with the
  /// grid. It outlives the panel.
  GridPanel(Grid& grid, const Form& form, QWidget* parent = nullptr);

  GridView& view() const { return *view_; }
  GridActions& actions() const { return *actions_; }
  QLineEdit& filterBox() const { return *filter_; }

  /// Puts the cursor into the filter.
  void find();

 protected:
  void changeEvent(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QWidget* buildTools();
  void update();
  void showCount();
  void showSelection();
  void applyColors();

  Grid& grid_;
  GridView* view_;
  GridActions* actions_;
  QLabel* heading_;
  QLabel* count_;
  QLineEdit* filter_;
  ControlBinding binding_;
};

/// The grid of a window that Find and Print act on: the one with the keyboard's focus, else the
/// first visible one; null when there is none.
GridPanel* gridInFocus(const QWidget& window);

}  // namespace dg
