#pragma once

#include <QWidget>
#include <map>
#include <vector>

#include "desktop/print/print_document.h"
#include "forms/form.h"
#include "history/recap_changes.h"
#include "shell/recap_figures.h"

class QGridLayout;
class QLabel;
class QPushButton;

namespace dg {

class Card;

/// Draws the recap as a dashboard: assets on the left, liabilities over sales and profit on the
/// right, each figure beside its caption. All texts are those of the form's labels.
class RecapView : public QWidget {
  Q_OBJECT

 public:
  explicit RecapView(Form& form, QWidget* parent = nullptr);

  /// The one line that tells of what needs attention today.
  void setToday(const QString& text);

  void print();
  void preview();
  /// Asks for a file and writes the recap as PDF.
  void savePdf();
  /// Writes the recap as a workbook or CSV, by the file's ending; tells when it cannot, and returns
  /// whether it was written.
  bool exportTo(const QString& file);

  /// Shows what changed beside the figures; without changes the recap is as it is.
  void setChanges(const std::vector<RecapChange>& changes);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 Q_SIGNALS:
  /// The user wants to see an added page: the charts, or what needs attention.
  void pageRequested(std::string_view page);
  /// The user wants to see what is behind a figure: the view of this name.
  void viewRequested(const QString& view);

 private:
  void askAndExport(const QString& suffix, const QString& kind);
  QWidget* buildHead();
  Card* buildList(RecapBlock block);
  Card* buildProfit();
  QWidget* label(std::string_view name, QWidget* parent, Qt::Alignment alignment);
  /// Puts the cards beside each other where there is room, else one below the other.
  void arrange();
  void addHeading(Card& card, RecapBlock block);
  void addCell(Card& card, int row, int column, std::string_view label, Qt::Alignment alignment);
  void leadFrom(QWidget* caption, const RecapFigure& figure);
  void addFigure(Card& card, int row, int column, const RecapFigure& figure);

  Form& form_;
  QPushButton* today_ = nullptr;
  std::map<Figure, QLabel*> changes_;  ///< under or beside the figures
  QGridLayout* sheet_;
  QWidget* head_;
  Card* assets_;
  Card* liabilities_;
  Card* profit_;
  int columns_ = 1;  ///< blocks beside each other
};

/// The recap as tables on paper.
PrintDocument recapDocument(const Form& form);

}  // namespace dg
