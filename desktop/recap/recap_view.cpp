#include "desktop/recap/recap_view.h"

#include <QGridLayout>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QScrollArea>
#include <QStyle>
#include <QToolButton>
#include <sstream>
#include <utility>

#include "desktop/grid/export_files.h"
#include "desktop/print/printing.h"
#include "desktop/recap/added_page.h"
#include "desktop/recap/card.h"
#include "desktop/window/label_widget.h"
#include "desktop/window/menu_button.h"
#include "desktop/window/text.h"
#include "desktop/window/theme.h"
#include "export/csv.h"
#include "export/form_sheet.h"
#include "history/figure_history.h"

namespace dg {

namespace {

constexpr int kRowHeight = 34;
constexpr int kWidestSheet = 1760;
/// From here on the three blocks stand beside each other.
constexpr int kThreeColumns = 1380;
/// So much more than a card gets the room below all cards that it gets all of it.
constexpr int kSpareRoom = 10'000;

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
  assets_ = buildList(RecapBlock::kAssets);
  liabilities_ = buildList(RecapBlock::kLiabilities);
  profit_ = buildProfit();
  arrange();
  scroll->setWidget(sheet);
}

void RecapView::arrange() {
  for (QWidget* widget : {head_, static_cast<QWidget*>(assets_),
                          static_cast<QWidget*>(liabilities_), static_cast<QWidget*>(profit_)}) {
    sheet_->removeWidget(widget);
  }
  if (columns_ == 3) {
    sheet_->addWidget(head_, 0, 0, 1, 3);
    sheet_->addWidget(assets_, 1, 0, Qt::AlignTop);
    sheet_->addWidget(liabilities_, 1, 1, Qt::AlignTop);
    sheet_->addWidget(profit_, 1, 2, Qt::AlignTop);
  } else if (columns_ == 2) {
    sheet_->addWidget(head_, 0, 0, 1, 2);
    sheet_->addWidget(assets_, 1, 0, 2, 1, Qt::AlignTop);
    sheet_->addWidget(liabilities_, 1, 1, Qt::AlignTop);
    sheet_->addWidget(profit_, 2, 1);
  } else {
    sheet_->addWidget(head_, 0, 0);
    sheet_->addWidget(assets_, 1, 0);
    sheet_->addWidget(liabilities_, 2, 0);
    sheet_->addWidget(profit_, 3, 0);
  }
  sheet_->setColumnStretch(0, 5);
  sheet_->setColumnStretch(1, columns_ == 1 ? 0 : 6 - columns_ % 2);
  sheet_->setColumnStretch(2, columns_ == 3 ? 6 : 0);
  // The right half ends where the left one does.
  sheet_->setRowStretch(2, columns_ == 2 ? 1 : 0);
  sheet_->setRowStretch(4, kSpareRoom);
}

void RecapView::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  const int needed = assets_->sizeHint().width() +
                     qMax(liabilities_->sizeHint().width(), profit_->sizeHint().width()) + 56 +
                     style()->pixelMetric(QStyle::PM_ScrollBarExtent);
  const int columns = width() >= kThreeColumns ? 3 : width() >= needed ? 2 : 1;
  if (columns == columns_) return;
  columns_ = columns;
  arrange();
}

QWidget* RecapView::label(std::string_view name, QWidget* parent, Qt::Alignment alignment) {
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

  today_ = new QPushButton(head);
  today_->setObjectName(QStringLiteral("todayLine"));
  today_->setFlat(true);
  today_->setCursor(Qt::PointingHandCursor);
  // A line of text that begins where the title does.
  today_->setStyleSheet(
      QStringLiteral("QPushButton{border:none;padding:2px 0;text-align:left}"
                     "QPushButton:hover,QPushButton:focus{text-decoration:underline}"));
  QPalette colors = today_->palette();
  colors.setColor(QPalette::ButtonText, accentColor(palette()));
  today_->setPalette(colors);
  connect(today_, &QPushButton::clicked, this, [this] { Q_EMIT pageRequested(kTodayPage); });
  layout->addWidget(today_, 2, 0, Qt::AlignLeft);

  auto* charts = new QToolButton(head);
  charts->setText(tr("&Charts"));
  charts->setToolButtonStyle(Qt::ToolButtonTextOnly);
  charts->setFocusPolicy(Qt::StrongFocus);
  connect(charts, &QToolButton::clicked, this, [this] { Q_EMIT pageRequested(kChartsPage); });
  layout->addWidget(charts, 0, 1, 2, 1);
  auto* files = new QMenu(tr("&Export"), head);
  files->addAction(tr("Excel &Workbook (XLSX)..."), this,
                   [this] { askAndExport(QStringLiteral("xlsx"), tr("Excel workbook (*.xlsx)")); });
  files->addAction(tr("&CSV File..."), this,
                   [this] { askAndExport(QStringLiteral("csv"), tr("CSV file (*.csv)")); });
  files->addAction(tr("P&DF File..."), this, &RecapView::savePdf);
  auto* exports = new MenuButton(files, head);
  exports->setFocusPolicy(Qt::StrongFocus);
  layout->addWidget(exports, 0, 3, 2, 1);
  auto* menu = new QMenu(tr("&Print"), head);
  menu->addAction(tr("&Print..."), this, &RecapView::print);
  menu->addAction(tr("Print Pre&view..."), this, &RecapView::preview);
  auto* paper = new MenuButton(menu, head);
  paper->setFocusPolicy(Qt::StrongFocus);
  layout->addWidget(paper, 0, 2, 2, 1);
  return head;
}

void RecapView::addHeading(Card& card, RecapBlock block) {
  card.grid()->addWidget(label(recapHeading(block).label, &card, Qt::AlignLeft), 0, 0, 1, -1);
  card.grid()->setRowMinimumHeight(0, kRowHeight);
}

void RecapView::addCell(Card& card, int row, int column, std::string_view name,
                        Qt::Alignment alignment) {
  card.grid()->addWidget(label(name, &card, alignment), row, column);
}

/// A caption leads to the view that works its figure out.
void RecapView::leadFrom(QWidget* caption, const RecapFigure& figure) {
  auto* label = qobject_cast<LabelWidget*>(caption);
  if (label == nullptr) return;
  const QString view = QString::fromUtf8(figure.view.data(), static_cast<int>(figure.view.size()));
  label->leadTo([this, view] { Q_EMIT viewRequested(view); });
}

void RecapView::addFigure(Card& card, int row, int column, const RecapFigure& figure) {
  QWidget* value = label(figure.label, &card, Qt::AlignRight);
  value->setFont(scaledFont(figureFont(font()), 1.1, QFont::DemiBold));
  auto* change = new QLabel(&card);
  change->setTextFormat(Qt::PlainText);
  change->setFont(scaledFont(figureFont(font()), 0.9));
  change->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  change->hide();
  changes_[figure.figure] = change;
  auto* cell = new QBoxLayout(figure.block == RecapBlock::kProfit ? QBoxLayout::TopToBottom
                                                                  : QBoxLayout::RightToLeft);
  cell->setSpacing(figure.block == RecapBlock::kProfit ? 0 : 12);
  cell->addWidget(value);
  cell->addWidget(change);
  if (figure.block != RecapBlock::kProfit) cell->addStretch(1);
  card.grid()->addLayout(cell, row, column);
  card.grid()->setRowMinimumHeight(row, kRowHeight);
}

void RecapView::setChanges(const std::vector<RecapChange>& changes) {
  for (const auto& [figure, label] : changes_)
    label->hide();
  for (const RecapChange& each : changes) {
    QLabel& label = *changes_.at(each.figure);
    QPalette own = palette();
    own.setColor(QPalette::WindowText, each.tone == ChangeTone::kGood  ? goodColor(own)
                                       : each.tone == ChangeTone::kBad ? errorColor(own)
                                                                       : mutedColor(own));
    label.setPalette(own);
    const QString since = tr("since %1").arg(cellText(each.change.from.day.shortDateText()));
    label.setText(QString::fromUtf8(changeLabel(each)) + u' ' + since);
    label.setToolTip(plainToolTip(
        tr("%1 on %2")
            .arg(cellText(amountText(each.change.from.amount, recapFigure(each.figure).kind)),
                 cellText(each.change.from.day.shortDateText()))));
    label.show();
  }
}

Card* RecapView::buildList(RecapBlock block) {
  auto* card = new Card(this);
  addHeading(*card, block);
  int row = 0;
  bool takings = false;
  for (const RecapFigure& figure : recapFigures(block)) {
    ++row;
    // The day's takings are no assets: they stand apart from what is above them.
    if (figure.span == FigureSpan::kToday && !std::exchange(takings, true)) {
      card->setSectionRow(row);
    }
    addCell(*card, row, 0, figure.caption, Qt::AlignLeft);
    leadFrom(card->grid()->itemAtPosition(row, 0)->widget(), figure);
    addFigure(*card, row, 1, figure);
  }
  card->grid()->setColumnStretch(1, 1);
  card->setRuledRows(1, row);
  return card;
}

Card* RecapView::buildProfit() {
  constexpr int kHeadRow = 1;
  auto* card = new Card(this);
  addHeading(*card, RecapBlock::kProfit);
  card->grid()->setRowMinimumHeight(kHeadRow, kRowHeight - 6);
  int position = 0;
  int row = kHeadRow;
  for (const RecapFigure& figure : recapFigures(RecapBlock::kProfit)) {
    const int column = position++ % kProfitColumns + 1;
    if (column == 1) {
      addCell(*card, ++row, 0, figure.caption, Qt::AlignLeft);
      leadFrom(card->grid()->itemAtPosition(row, 0)->widget(), figure);
    }
    card->grid()->setRowStretch(row, 1);  // the card may be higher than its rows
    if (row == kHeadRow + 1) {
      addCell(*card, kHeadRow, column, figure.head, Qt::AlignRight);
      card->grid()->setColumnStretch(column, figure.kind == FigureKind::kMoney ? 3 : 2);
    }
    addFigure(*card, row, column, figure);
  }
  card->setRuledRows(kHeadRow + 1, row);
  return card;
}

void RecapView::setToday(const QString& text) {
  today_->setText(text);
}

void RecapView::print() {
  printDocument(recapDocument(form_), window());
}

void RecapView::savePdf() {
  const QString file = askForExportFile(window(), QStringLiteral("Recap"), QStringLiteral("pdf"),
                                        tr("PDF file (*.pdf)"));
  if (!file.isEmpty()) exported(window(), file, writePdf(recapDocument(form_), file));
}

void RecapView::askAndExport(const QString& suffix, const QString& kind) {
  const QString file = askForExportFile(window(), QStringLiteral("Recap"), suffix, kind);
  if (!file.isEmpty()) exportTo(file);
}

bool RecapView::exportTo(const QString& file) {
  try {
    std::string content;
    if (file.endsWith(QStringLiteral(".xlsx"), Qt::CaseInsensitive)) {
      Workbook book;
      book.setTitle(toBytes(printStore()));
      addFormSheet(book, form_);
      content = book.finish();
    } else {
      std::ostringstream text;
      text << kByteOrderMark;
      writeFormCsv(text, form_);
      content = text.str();
    }
    writeExport(std::filesystem::path(file.toStdU16String()), content);
  } catch (const ExportError& error) {
    return exported(window(), file, false, QString::fromUtf8(error.what()));
  }
  return exported(window(), file, true);
}

void RecapView::preview() {
  previewDocument(recapDocument(form_), window());
}

}  // namespace dg
