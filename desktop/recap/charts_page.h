#pragma once

#include <array>

#include "desktop/recap/added_page.h"
#include "desktop/recap/chart_data.h"

class QButtonGroup;
class QGridLayout;
class QImage;

namespace dg {

class BarChart;

/// The recap's figures as charts: assets by kind, parts inventory by line, sales and profit by
/// line for a period that the user picks.
class ChartsPage : public AddedPage {
  Q_OBJECT

 public:
  explicit ChartsPage(const frmTRVN& main, QWidget* parent = nullptr);

  /// Draws the charts anew from what is loaded.
  void opened() override;
  void setPeriod(ChartPeriod period);

  /// Saves all charts as they stand as a PNG file; returns whether it could be written.
  bool savePicture(const QString& file) const;

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  QWidget* buildHead();
  QWidget* buildPeriods();
  /// Two charts beside each other where the page is wide enough, else one below the other.
  void arrange();
  void askAndSave(const BarChart* chart);

  const frmTRVN& main_;
  ChartPeriod period_ = ChartPeriod::kYear;
  bool wide_ = true;
  QGridLayout* sheet_ = nullptr;
  QButtonGroup* periods_;
  BarChart* assets_;
  BarChart* inventory_;
  BarChart* sales_;
};

/// What stands below a picture that leaves the program: the store and the moment of its figures.
QString pictureCaption();
/// A picture with that line below it.
QImage captioned(const QImage& picture);
/// Saves a picture as PNG, whole or not at all; returns whether it could be written.
bool savePng(const QImage& picture, const QString& file);

}  // namespace dg
