#include "desktop/recap/recap_view.h"

#include <QGridLayout>
#include <QMenu>
#include <QScrollArea>
#include <QToolButton>

#include "desktop/grid/export_files.h"
#include "desktop/print/printing.h"
#include "desktop/recap/card.h"
#include "desktop/recap/recap_rows.h"
#include "desktop/window/label_widget.h"
#include "desktop/window/menu_button.h"
#include "desktop/window/text.h"
#include "desktop/window/theme.h"

namespace dg {

namespace {

constexpr int kRowHeight = 34;
constexpr int kWidestSheet = 1180;

}  // namespace

RecapView::RecapView(Form& form, QWidget* parent) : QWidget(parent), form_(form) {
  setObjectName(QString::fromStdString(form.name()));
  setAccessibleName(cellText(form.caption()));
  auto* outer = new QVBoxLayout(this);
  outer->setContentsMargins({});
  auto* scroll = new QScrollArea(this);
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setWidgetResizable(true);
  scroll->setFocusPolicy(Qt::NoFocus);
  outer->addWidget(scroll);

  auto* sheet = new QWidget;
  sheet->setMaximumWidth(kWidestSheet);
  sheet_ = new QGridLayout(sheet);
  sheet_->setContentsMargins(20, 16, 20, 20);
  sheet_->setSpacing(16);
  head_ = buildHead();
  assets_ = buildList(kAssetHeading, recapAssets());
  liabilities_ = buildList(kLiabilityHeading, recapLiabilities());
  profit_ = buildProfit();
  arrange();
  scroll->setWidget(sheet);
}

void RecapView::arrange() {
  for (QWidget* widget : {head_, static_cast<QWidget*>(assets_),
                          static_cast<QWidget*>(liabilities_), static_cast<QWidget*>(profit_)}) {
    sheet_->removeWidget(widget);
  }
  if (wide_) {
    sheet_->addWidget(head_, 0, 0, 1, 2);
    sheet_->addWidget(assets_, 1, 0, 2, 1, Qt::AlignTop);
    sheet_->addWidget(liabilities_, 1, 1, Qt::AlignTop);
    sheet_->addWidget(profit_, 2, 1, Qt::AlignTop);
  } else {
    sheet_->addWidget(head_, 0, 0);
    sheet_->addWidget(assets_, 1, 0);
    sheet_->addWidget(liabilities_, 2, 0);
    sheet_->addWidget(profit_, 3, 0);
  }
  sheet_->setColumnStretch(0, 5);
  sheet_->setColumnStretch(1, wide_ ? 6 : 0);
  sheet_->setRowStretch(2, wide_ ? 1 : 0);
  sheet_->setRowStretch(4, 2);
}

void RecapView::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  const int needed = assets_->sizeHint().width() +
                     qMax(liabilities_->sizeHint().width(), profit_->sizeHint().width()) + 56;
  const bool wide = width() >= needed;
  if (wide == wide_) return;
  wide_ = wide;
  arrange();
}

QWidget* RecapView::label(const std::string& name, QWidget* parent, Qt::Alignment alignment) {
  auto* source = dynamic_cast<Label*>(form_.find(name));
  if (source == nullptr) return new QWidget(parent);
  auto* widget = new LabelWidget(*source, parent);
  // Figures are never cut.
  widget->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Preferred);
  widget->setAlignment(alignment | Qt::AlignVCenter);
  return widget;
}

QWidget* RecapView::buildHead() {
  auto* head = new QWidget(this);
  auto* layout = new QGridLayout(head);
  layout->setContentsMargins({});
  layout->setVerticalSpacing(2);
  layout->addWidget(label("lblTitle", head, Qt::AlignLeft), 0, 0);
  layout->addWidget(label("lblcompiledate", head, Qt::AlignLeft), 1, 0);
  layout->setColumnStretch(0, 1);

  auto* charts = new QToolButton(head);
  charts->setText(tr("C&harts"));
  charts->setToolButtonStyle(Qt::ToolButtonTextOnly);
  charts->setFocusPolicy(Qt::StrongFocus);
  connect(charts, &QToolButton::clicked, this, &RecapView::chartsRequested);
  layout->addWidget(charts, 0, 1, 2, 1);
  auto* menu = new QMenu(tr("&Print"), head);
  menu->addAction(tr("&Print..."), this, &RecapView::print);
  menu->addAction(tr("Print Pre&view..."), this, &RecapView::preview);
  menu->addAction(tr("Save as P&DF..."), this, &RecapView::savePdf);
  auto* paper = new MenuButton(menu, head);
  paper->setFocusPolicy(Qt::StrongFocus);
  layout->addWidget(paper, 0, 2, 2, 1);
  return head;
}

void RecapView::addRow(Card& card, int row, int caption, int figure) {
  QGridLayout* grid = card.grid();
  grid->addWidget(label(elementName("Label1", caption), &card, Qt::AlignLeft), row, 0);
  QWidget* value = label(elementName("lblRecap", figure), &card, Qt::AlignRight);
  value->setFont(scaledFont(figureFont(font()), 1.1, QFont::DemiBold));
  grid->addWidget(value, row, 1);
  grid->setRowMinimumHeight(row, kRowHeight);
}

Card* RecapView::buildList(int heading, const QList<QPair<int, int>>& rows) {
  auto* card = new Card(this);
  card->grid()->addWidget(label(elementName("Label2", heading), card, Qt::AlignLeft), 0, 0, 1, 2);
  card->grid()->setRowMinimumHeight(0, kRowHeight);
  int row = 1;
  for (const auto& [caption, figure] : rows) {
    if (figure == kTodaysSales) card->setSectionRow(row);
    addRow(*card, row++, caption, figure);
  }
  card->grid()->setColumnStretch(1, 1);
  card->setRuledRows(1, row - 1);
  return card;
}

Card* RecapView::buildProfit() {
  auto* card = new Card(this);
  QGridLayout* grid = card->grid();
  grid->addWidget(label(elementName("Label2", kProfitHeading), card, Qt::AlignLeft), 0, 0, 1, 4);
  grid->setRowMinimumHeight(0, kRowHeight);
  grid->setRowMinimumHeight(1, kRowHeight - 6);
  for (int column = 0; column < kProfitColumns; ++column) {
    grid->addWidget(
        label(elementName("Label1", kProfitColumnCaptions[column]), card, Qt::AlignRight), 1,
        column + 1);
    grid->setColumnStretch(column + 1, column < 2 ? 3 : 2);
  }
  for (int row = 0; row < kProfitRows; ++row) {
    grid->addWidget(label(elementName("Label1", kProfitRowCaptions[row]), card, Qt::AlignLeft),
                    row + 2, 0);
    for (int column = 0; column < kProfitColumns; ++column) {
      QWidget* value =
          label(elementName("lblRecap", profitLabel(row, column)), card, Qt::AlignRight);
      value->setFont(scaledFont(figureFont(font()), 1.1, QFont::DemiBold));
      grid->addWidget(value, row + 2, column + 1);
    }
    grid->setRowMinimumHeight(row + 2, kRowHeight);
  }
  card->setRuledRows(2, kProfitRows + 1);
  return card;
}

void RecapView::print() {
  printDocument(recapDocument(form_), window());
}

void RecapView::savePdf() {
  const QString file = askForExportFile(window(), QStringLiteral("Recap"), QStringLiteral("pdf"),
                                        tr("PDF file (*.pdf)"));
  if (!file.isEmpty()) exported(window(), file, writePdf(recapDocument(form_), file));
}

void RecapView::preview() {
  previewDocument(recapDocument(form_), window());
}

}  // namespace dg
