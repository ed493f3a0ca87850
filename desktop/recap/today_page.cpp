#include "desktop/recap/today_page.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QProgressDialog>
#include <QScrollArea>
#include <QStackedWidget>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>
#include <utility>

#include "desktop/grid/grid_panel.h"
#include "desktop/grid/grid_view.h"
#include "desktop/recap/attention_rows.h"
#include "desktop/recap/bar_chart.h"
#include "desktop/recap/card.h"
#include "desktop/recap/limits_dialog.h"
#include "desktop/window/access_keys.h"
#include "desktop/window/menu_bar.h"
#include "desktop/window/text.h"
#include "desktop/window/theme.h"
#include "forms/control.h"
#include "platform/values/format.h"
#include "shell/main_window.h"

namespace dg {

namespace {

constexpr int kMargin = 20;
constexpr int kGap = 16;
constexpr int kCardColumns = 2;
constexpr int kAgeingHeight = 300;

QLabel* label(const QString& text, QWidget* parent, bool muted = false) {
  auto* made = new QLabel(text, parent);
  made->setTextFormat(Qt::PlainText);
  made->setWordWrap(true);
  if (muted) {
    QPalette quiet = made->palette();
    quiet.setColor(QPalette::WindowText, mutedColor(quiet));
    made->setPalette(quiet);
  }
  return made;
}

QString money(Currency amount) {
  return fromBytes(Format(amount, "$###,###,##0.00"));
}

/// The kind's meaning with its limit in it.
QString meaning(AttentionKind kind, const AttentionLimits& limits) {
  return fromBytes(meaningOf(kind, limits[static_cast<std::size_t>(kind)]));
}

QString countText(const KindResult& result) {
  const auto count = static_cast<int>(result.rows.size());
  QString text = count == 1 ? TodayPage::tr("1 item") : TodayPage::tr("%1 items").arg(count);
  if (const auto& oldest = result.rows.front(); oldest.days) {
    text += TodayPage::tr(", the oldest of %1, %2 days")
                .arg(fromBytes(oldest.date->shortDateText()))
                .arg(*oldest.days);
  }
  return text;
}

/// What part of its family's open amount a kind is, in percent; none where that says nothing.
std::optional<int> shareOf(const KindResult& result, const TodaysWork& work) {
  const KindEntry& entry = entryOf(result.kind);
  if (entry.file != WholeFile::kNone || entry.kind == AttentionKind::kFloorPlanSoldUnpaid)
    return {};
  const double whole = work.ageing(entry.family).total.toDouble();
  const double part = result.amount.toDouble();
  if (whole <= 0 || part < 0 || part > whole) return {};
  return static_cast<int>(std::lround(100 * part / whole));
}

}  // namespace

TodayPage::TodayPage(const frmTRVN& main, TodaysWork& work, QWidget* parent)
    : AddedPage(tr("Today"), parent),
      main_(main),
      work_(work),
      pages_(new QStackedWidget(this)),
      scroll_(new QScrollArea(this)) {
  auto* outer = new QVBoxLayout(this);
  outer->setContentsMargins({});
  outer->addWidget(pages_);
  scroll_->setFrameShape(QFrame::NoFrame);
  scroll_->setWidgetResizable(true);
  scroll_->setFocusPolicy(Qt::NoFocus);
  pages_->addWidget(scroll_);
}

TodayPage::~TodayPage() {
  // The tables go before the grids that they show.
  delete pages_;
}

void TodayPage::opened() {
  showCards();
  delete std::exchange(rowsPage_, nullptr);
  rows_.reset();
  delete scroll_->takeWidget();  // the table of ages goes before its grid
  auto* sheet = new QWidget;
  auto* layout = new QGridLayout(sheet);
  layout->setContentsMargins(kMargin, 16, kMargin, kMargin);
  layout->setSpacing(kGap);
  layout->addWidget(buildHead(), 0, 0, 1, kCardColumns);

  std::vector<std::pair<AttentionKind, std::optional<KindResult>>> cards;
  QStringList nothing;
  for (const KindEntry& entry : attentionKinds()) {
    auto result = work_.result(entry.kind);
    if (result && result->rows.empty() && result->error.empty()) {
      nothing += fromBytes(entry.caption);
    } else {
      cards.emplace_back(entry.kind, std::move(result));
    }
  }
  // What has not been read stands last, what failed before it.
  std::ranges::stable_sort(cards, [](const auto& a, const auto& b) {
    if (a.second.has_value() != b.second.has_value()) return a.second.has_value();
    if (!a.second) return false;
    if (a.second->rows.empty() != b.second->rows.empty()) return !a.second->rows.empty();
    return a.second->amount > b.second->amount;
  });
  int place = 0;
  for (const auto& [kind, result] : cards) {
    layout->addWidget(buildCard(kind, result), 1 + place / kCardColumns, place % kCardColumns);
    ++place;
  }
  int row = 2 + place / kCardColumns;
  if (!nothing.isEmpty()) {
    layout->addWidget(
        label(tr("Nothing to do: %1.").arg(nothing.join(QStringLiteral(", "))), sheet, true), row++,
        0, 1, kCardColumns);
  }
  layout->addWidget(buildAgeing(), row, 0, 1, kCardColumns);
  for (int column = 0; column < kCardColumns; ++column)
    layout->setColumnStretch(column, 1);
  layout->setRowStretch(row + 1, 1);
  keepKeysUnique(*sheet, MenuBar::captions());
  scroll_->setWidget(sheet);
}

QWidget* TodayPage::buildHead() {
  auto* head = new QWidget(this);
  auto* layout = new QGridLayout(head);
  layout->setContentsMargins({});
  layout->addWidget(titleLabel(head), 0, 0);
  layout->addWidget(label(fromBytes(work_.summary()), head, true), 1, 0);
  layout->setColumnStretch(0, 1);
  layout->addWidget(recapButton(head), 0, 1, 2, 1);
  QToolButton* limits = headButton(tr("&Limits..."), head);
  connect(limits, &QToolButton::clicked, this, &TodayPage::editLimits, Qt::QueuedConnection);
  layout->addWidget(limits, 0, 2, 2, 1);
  return head;
}

QWidget* TodayPage::buildCard(AttentionKind kind, const std::optional<KindResult>& result) {
  const KindEntry& entry = entryOf(kind);
  auto* card = new Card(this);
  card->setObjectName(QStringLiteral("card-") + fromBytes(entry.name));
  QGridLayout& layout = *card->grid();
  auto* title = label(fromBytes(entry.caption), card);
  title->setFont(scaledFont(font(), 1.1, QFont::DemiBold));
  layout.addWidget(title, 0, 0);
  layout.addWidget(label(meaning(kind, work_.limits()), card, true), 1, 0, 1, 2);
  layout.setColumnStretch(0, 1);
  layout.setRowStretch(4, 1);  // where the card beside it is higher

  if (result && !result->error.empty()) {
    layout.addWidget(buildFailure(tr("Could not be read: %1").arg(fromBytes(result->error)), card),
                     2, 0, 1, 2);
    return card;
  }
  QToolButton* show = headButton(result ? tr("&Show") : tr("&Read and Show"), card);
  show->setObjectName(QStringLiteral("show"));
  show->setAccessibleName(tr("Show %1").arg(fromBytes(entry.caption)));
  // Queued: the cards, and this button, may be made anew.
  connect(
      show, &QToolButton::clicked, this, [this, kind] { open(kind); }, Qt::QueuedConnection);
  if (!result) {
    layout.addWidget(label(tr("Not read yet: it takes a whole file."), card, true), 2, 0);
    layout.addWidget(show, 2, 1, Qt::AlignRight);
    return card;
  }
  auto* amount = label(money(result->amount), card);
  amount->setWordWrap(false);
  amount->setFont(scaledFont(figureFont(font()), 1.3, QFont::DemiBold));
  layout.addWidget(amount, 0, 1, Qt::AlignRight);
  layout.addWidget(label(countText(*result), card), 2, 0);
  layout.addWidget(show, 2, 1, Qt::AlignRight);
  if (!result->isWhole())
    layout.addWidget(buildFailure(tr("Could not be read completely."), card), 5, 0, 1, 2);
  if (const auto share = shareOf(*result, work_)) {
    auto* bar = new QProgressBar(card);
    bar->setRange(0, 100);
    bar->setValue(*share);
    bar->setTextVisible(false);
    bar->setMaximumHeight(fontMetrics().height() / 2);
    const auto& family = openFamilies()[static_cast<std::size_t>(entry.family)];
    const QString text = tr("%1 % of %2").arg(*share).arg(fromBytes(family.caption));
    bar->setToolTip(text);
    bar->setAccessibleName(text);
    auto* line = new QHBoxLayout;
    line->setSpacing(8);
    line->addWidget(bar, 1);
    layout.addLayout(line, 3, 0, 1, 2);
    auto* part = label(text, card, true);
    part->setWordWrap(false);
    line->addWidget(part);
  }
  return card;
}

/// What went wrong with a card, and the way to the log.
QWidget* TodayPage::buildFailure(const QString& text, QWidget* parent) {
  auto* line = new QWidget(parent);
  auto* layout = new QHBoxLayout(line);
  layout->setContentsMargins({});
  auto* error = label(text, line);
  QPalette colors = error->palette();
  colors.setColor(QPalette::WindowText, errorColor(palette()));
  error->setPalette(colors);
  layout->addWidget(error, 1);
  QToolButton* log = headButton(tr("View &Log"), line);
  connect(log, &QToolButton::clicked, this, &TodayPage::logRequested);
  layout->addWidget(log);
  return line;
}

QWidget* TodayPage::buildAgeing() {
  auto* area = new QWidget(this);
  auto* layout = new QGridLayout(area);
  layout->setContentsMargins({});
  layout->setSpacing(kGap);
  const std::vector<Ageing> ageing = work_.ageing();
  ages_ = ageingGrid(ageing);
  agesForm_ = std::make_unique<Form>("today", "Age of what is open");
  if (!std::ranges::all_of(ageing, &Ageing::isWhole)) agesForm_->markIncomplete();
  auto* table = new GridPanel(*ages_, *agesForm_, area);
  table->setMinimumHeight(kAgeingHeight);
  layout->addWidget(table, 0, 0, 1, kCardColumns);
  int place = 0;
  for (const Ageing& family : ageing) {
    if (!family.error.empty() || family.count == 0) continue;
    auto* chart = new BarChart(area);
    ChartData bars{
        .title = fromBytes(openFamilies()[static_cast<std::size_t>(family.family)].caption),
        .note = tr("by age in days"),
        .series = {tr("Amount")},
        .bars = {}};
    for (std::size_t i = 0; i < kAgeBuckets.size(); ++i)
      bars.bars += {fromBytes(kAgeBuckets[i]), {family.buckets[i].amount.toDouble()}};
    chart->setData(std::move(bars));
    layout->addWidget(chart, 1 + place / kCardColumns, place % kCardColumns);
    ++place;
  }
  return area;
}

bool TodayPage::read(AttentionKind kind) {
  QProgressDialog progress(tr("Reading %1...").arg(fromBytes(entryOf(kind).caption)), tr("Cancel"),
                           0, 0, this);
  progress.setObjectName(QStringLiteral("reading"));
  progress.setWindowTitle(tr("Today"));
  progress.setWindowModality(Qt::ApplicationModal);
  progress.setMinimumDuration(300);
  return work_.read(kind, [&progress](std::int64_t done, std::int64_t most) {
    progress.setMaximum(static_cast<int>(std::max(done + 1, most)));
    progress.setValue(static_cast<int>(done));
    return !progress.wasCanceled();
  });
}

void TodayPage::open(AttentionKind kind) {
  if (main_.loading() || !read(kind)) return;
  const bool wasUnread = entryOf(kind).file != WholeFile::kNone;
  if (wasUnread) opened();
  const auto result = work_.result(kind);
  if (!result || !result->error.empty() || result->rows.empty()) return;
  delete std::exchange(rowsPage_, nullptr);
  rows_ = attentionGrid(*result, main_);
  rowsPage_ = new QWidget(pages_);
  auto* layout = new QVBoxLayout(rowsPage_);
  layout->setContentsMargins(kMargin, 16, kMargin, kMargin);
  QToolButton* back = headButton(tr("&Back to Today"), rowsPage_);
  back->setObjectName(QStringLiteral("back"));
  connect(back, &QToolButton::clicked, this, &TodayPage::showCards);
  layout->addWidget(back);
  layout->addWidget(label(meaning(kind, work_.limits()), rowsPage_, true));
  rowsForm_ = std::make_unique<Form>("today", std::string(entryOf(kind).caption));
  if (!result->isWhole()) rowsForm_->markIncomplete();
  auto* table = new GridPanel(*rows_, *rowsForm_, rowsPage_);
  layout->addWidget(table, 1);
  pages_->addWidget(rowsPage_);
  pages_->setCurrentWidget(rowsPage_);
  table->setFocus();
}

void TodayPage::showCards() {
  pages_->setCurrentWidget(scroll_);
}

void TodayPage::editLimits() {
  LimitsDialog dialog(work_.limits(), this);
  if (dialog.exec() != QDialog::Accepted) return;
  dispatchEvent([&] { work_.setLimits(dialog.limits()); });
  opened();
}

}  // namespace dg
