#pragma once

#include <memory>

#include "desktop/recap/added_page.h"
#include "desktop/recap/history_keeper.h"
#include "forms/form.h"
#include "history/figure_history.h"

class QButtonGroup;
class QComboBox;
class QLabel;
class QStackedLayout;
class QVBoxLayout;

namespace dg {

class GridPanel;
class LineChart;

/// The figures of past days: a line of one or two of them over a range, and a table of its days.
/// Before anything is kept, what would be, and the button that starts it.
class HistoryPage : public AddedPage {
  Q_OBJECT

 public:
  explicit HistoryPage(HistoryKeeper& keeper, QWidget* parent = nullptr);
  ~HistoryPage() override;

  /// Draws anew from what is kept.
  void opened() override;
  /// How many days back the line goes; 0 for all.
  void setRange(int days);

 private:
  QWidget* buildOffer();
  QWidget* buildLines();
  QWidget* buildTools();
  void fillFigures();
  void showRange();
  void fillTable(const QList<FigureHistory>& figures);
  void askAndForget();
  void askAndSave();

  HistoryKeeper& keeper_;
  QStackedLayout* stack_;
  QLabel* trouble_;
  QComboBox* first_;
  QComboBox* second_;
  QButtonGroup* ranges_;
  LineChart* chart_;
  QVBoxLayout* tableSpace_ = nullptr;
  Form tableForm_{"history",
                  "History"};  ///< what names the table, as a window does those of a view
  std::unique_ptr<Grid> grid_;
  GridPanel* table_ = nullptr;
  int range_;
};

}  // namespace dg
