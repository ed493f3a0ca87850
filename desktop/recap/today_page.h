#pragma once

#include <memory>

#include "desktop/recap/added_page.h"
#include "desktop/recap/todays_work.h"
#include "forms/form.h"

class QGridLayout;
class QLabel;
class QScrollArea;
class QStackedWidget;

namespace dg {

class frmTRVN;

/// What needs attention today: a card a kind, the largest amount first, and the age of what is
/// open. A card opens its rows as a table in the page's place.
class TodayPage : public AddedPage {
  Q_OBJECT

 public:
  TodayPage(const frmTRVN& main, TodaysWork& work, QWidget* parent = nullptr);
  ~TodayPage() override;

  /// Builds the cards anew from what is there.
  void opened() override;
  /// Shows a kind's rows; of a whole file it is read first, with progress and Cancel.
  void open(AttentionKind kind);
  void editLimits();

 private:
  QWidget* buildHead();
  QWidget* buildCard(AttentionKind kind, const std::optional<KindResult>& result);
  QWidget* buildFailure(const QString& text, QWidget* parent);
  QWidget* buildAgeing();
  bool read(AttentionKind kind);
  void showCards();

  const frmTRVN& main_;
  TodaysWork& work_;
  QStackedWidget* pages_;
  QScrollArea* scroll_;
  QWidget* rowsPage_ = nullptr;
  std::unique_ptr<Form> agesForm_;  ///< what names the tables, as a window does those of a view
  std::unique_ptr<Form> rowsForm_;
  std::unique_ptr<Grid> rows_;
  std::unique_ptr<Grid> ages_;
};

}  // namespace dg
