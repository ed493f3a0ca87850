#include "desktop/recap/history_page.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QStackedLayout>
#include <QToolButton>
#include <algorithm>
#include <map>

#include "desktop/grid/export_files.h"
#include "desktop/grid/grid_panel.h"
#include "desktop/recap/charts_page.h"
#include "desktop/recap/line_chart.h"
#include "desktop/window/text.h"
#include "desktop/window/theme.h"
#include "platform/clock.h"
#include "platform/text.h"

namespace dg {

namespace {

constexpr double kPictureScale = 2;
/// Of a choice: the name that its figure is kept under. Its source stands as the user data.
constexpr int kNameRole = Qt::UserRole + 1;

struct Range {
  int days;  ///< 0: all
  const char* name;
};
constexpr Range kRanges[] = {
    {7, QT_TRANSLATE_NOOP("HistoryPage", "Week")},
    {31, QT_TRANSLATE_NOOP("HistoryPage", "Month")},
    {92, QT_TRANSLATE_NOOP("HistoryPage", "Quarter")},
    {366, QT_TRANSLATE_NOOP("HistoryPage", "Year")},
    {0, QT_TRANSLATE_NOOP("HistoryPage", "All")},
};
constexpr int kFirstRange = 31;

LineSeries lineOf(const FigureHistory& figure) {
  LineSeries line{QString::fromStdString(captionOf(figure.figure)), figure.kind(), {}};
  for (const KeptValue& value : figure.values)
    line.points.append({value.day.days(), value.amount.toDouble()});
  return line;
}

}  // namespace

HistoryPage::HistoryPage(HistoryKeeper& keeper, QWidget* parent)
    : AddedPage(tr("History"), parent),
      keeper_(keeper),
      stack_(new QStackedLayout(this)),
      trouble_(new QLabel),
      first_(new QComboBox),
      second_(new QComboBox),
      ranges_(new QButtonGroup(this)),
      chart_(new LineChart),
      range_(kFirstRange) {
  stack_->addWidget(buildOffer());
  stack_->addWidget(buildLines());
  connect(&keeper_, &HistoryKeeper::changed, this, &HistoryPage::opened);
  connect(chart_, &LineChart::saveRequested, this, &HistoryPage::askAndSave);
}

HistoryPage::~HistoryPage() {
  delete table_;  // it goes before its grid
}

QWidget* HistoryPage::buildOffer() {
  auto* page = new QWidget(this);
  auto* layout = new QVBoxLayout(page);
  layout->setContentsMargins(20, 16, 20, 20);
  layout->setSpacing(14);
  layout->addWidget(titleLabel(page));
  auto* text = new QLabel(
      tr("From now on the recap's figures can be kept day by day, so that you see what has moved "
         "since yesterday and over the year. They stay on this computer, in %1; nothing is "
         "written to the share.")
          .arg(HistoryKeeper::fileName()),
      page);
  text->setTextFormat(Qt::PlainText);
  text->setWordWrap(true);
  text->setMaximumWidth(640);
  layout->addWidget(text);
  auto* start = new QPushButton(tr("Start keepin&g"), page);
  connect(start, &QPushButton::clicked, &keeper_, &HistoryKeeper::start);
  layout->addWidget(start, 0, Qt::AlignLeft);
  layout->addStretch(1);
  return page;
}

QWidget* HistoryPage::buildLines() {
  auto* page = new QWidget(this);
  auto* layout = new QVBoxLayout(page);
  layout->setContentsMargins(20, 16, 20, 20);
  layout->setSpacing(12);
  auto* head = new QHBoxLayout;
  head->addWidget(titleLabel(page), 1);
  auto* keep = new QCheckBox(tr("&Keep a day at each load"), page);
  keep->setObjectName(QStringLiteral("keepHistory"));
  connect(keep, &QCheckBox::clicked, &keeper_,
          [this](bool on) { on ? keeper_.start() : keeper_.stop(); });
  connect(&keeper_, &HistoryKeeper::changed, keep,
          [keep] { keep->setChecked(HistoryKeeper::isKeeping()); });
  keep->setChecked(HistoryKeeper::isKeeping());
  head->addWidget(keep);
  head->addWidget(recapButton(page));
  QToolButton* save = headButton(tr("&Save as Picture..."), page);
  connect(save, &QToolButton::clicked, this, &HistoryPage::askAndSave);
  head->addWidget(save);
  QToolButton* forget = headButton(tr("&Delete..."), page);
  connect(forget, &QToolButton::clicked, this, &HistoryPage::askAndForget);
  head->addWidget(forget);
  layout->addLayout(head);
  trouble_->setTextFormat(Qt::PlainText);
  trouble_->setWordWrap(true);
  layout->addWidget(trouble_);
  layout->addWidget(buildTools());
  layout->addWidget(chart_, 3);
  tableSpace_ = new QVBoxLayout;
  layout->addLayout(tableSpace_, 2);
  return page;
}

QWidget* HistoryPage::buildTools() {
  auto* row = new QWidget;
  auto* layout = new QHBoxLayout(row);
  layout->setContentsMargins({});
  first_->setAccessibleName(tr("Figure"));
  second_->setAccessibleName(tr("Second figure"));
  layout->addWidget(first_);
  layout->addWidget(new QLabel(tr("and"), row));
  layout->addWidget(second_);
  layout->addStretch(1);
  for (const Range& range : kRanges) {
    QToolButton* choice = headButton(tr(range.name), row);
    choice->setCheckable(true);
    choice->setChecked(range.days == range_);
    ranges_->addButton(choice, range.days);
    layout->addWidget(choice);
  }
  connect(ranges_, &QButtonGroup::idClicked, this, &HistoryPage::setRange);
  for (QComboBox* box : {first_, second_})
    connect(box, &QComboBox::activated, this, &HistoryPage::showRange);
  return row;
}

void HistoryPage::setRange(int days) {
  range_ = days;
  ranges_->button(days)->setChecked(true);
  showRange();
}

void HistoryPage::opened() {
  const bool anything =
      keeper_.history() != nullptr || HistoryKeeper::isKeeping() || !keeper_.trouble().isEmpty();
  stack_->setCurrentIndex(anything ? 1 : 0);
  QPalette own = palette();
  own.setColor(QPalette::WindowText, errorColor(palette()));
  trouble_->setPalette(own);
  trouble_->setText(keeper_.trouble());
  trouble_->setVisible(!keeper_.trouble().isEmpty());
  if (!anything) return;
  fillFigures();
  showRange();
}

void HistoryPage::fillFigures() {
  const QString one = first_->currentText();
  const QString other = second_->currentText();
  first_->clear();
  second_->clear();
  second_->addItem(tr("no other"));
  try {
    if (keeper_.history() != nullptr) {
      for (const FigureName& figure : keptFigures(*keeper_.history(), keeper_.store())) {
        for (QComboBox* box : {first_, second_}) {
          box->addItem(QString::fromStdString(captionOf(figure)), static_cast<int>(figure.source));
          box->setItemData(box->count() - 1, QString::fromStdString(figure.name), kNameRole);
        }
      }
    }
  } catch (const HistoryError& error) {
    trouble_->setText(QString::fromUtf8(error.what()));
    trouble_->show();
  }
  first_->setCurrentIndex(qMax(0, first_->findText(one)));
  second_->setCurrentIndex(qMax(0, second_->findText(other)));
}

void HistoryPage::showRange() {
  LineData lines;
  const int today = now().days();
  lines.lastDay = today;
  lines.firstDay = range_ == 0 ? today : today - range_ + 1;
  const auto since = range_ == 0 ? std::nullopt : std::optional(Date(lines.firstDay));
  QList<FigureHistory> figures;
  try {
    for (const QComboBox* box : {first_, second_}) {
      if (keeper_.history() == nullptr || !box->currentData().isValid()) continue;
      FigureHistory figure = readFigure(*keeper_.history(), keeper_.store(),
                                        {static_cast<FigureSource>(box->currentData().toInt()),
                                         box->currentData(kNameRole).toString().toStdString()},
                                        since);
      if (range_ != 0) {
        std::erase_if(figure.values,
                      [&](const KeptValue& value) { return value.day.days() > today; });
      } else if (!figure.values.empty()) {
        lines.firstDay = qMin(lines.firstDay, figure.values.front().day.days());
        lines.lastDay = qMax(lines.lastDay, figure.values.back().day.days());
      }
      figures.append(std::move(figure));
    }
  } catch (const HistoryError& error) {
    trouble_->setText(QString::fromUtf8(error.what()));
    trouble_->show();
  }
  QStringList names;
  for (const FigureHistory& figure : figures) {
    lines.series.append(lineOf(figure));
    names.append(lines.series.last().name);
  }
  lines.title = names.join(tr(" and "));
  lines.note = tr("%1 to %2").arg(dayText(lines.firstDay), dayText(lines.lastDay));
  chart_->setData(std::move(lines));
  fillTable(figures);
}

void HistoryPage::fillTable(const QList<FigureHistory>& figures) {
  std::vector<std::string> names{"Day"};
  std::vector<ColumnKind> kinds{ColumnKind::kDate};
  const auto addColumn = [&](const std::string& name, ColumnKind kind) {
    names.push_back(name);
    kinds.push_back(kind);
  };
  std::map<std::int32_t, std::map<std::size_t, std::string>> rows;
  for (const FigureHistory& figure : figures) {
    const std::string name = bytesFromUtf8(captionOf(figure.figure));
    const ColumnKind kind =
        figure.kind() == FigureKind::kRate ? ColumnKind::kPercent : ColumnKind::kMoney;
    const std::size_t first = names.size();
    addColumn(name, kind);
    addColumn(name + " Change", kind);
    if (figure.recap == nullptr) addColumn(name + " Count", ColumnKind::kNumber);
    const KeptValue* former = nullptr;
    for (const KeptValue& value : figure.values) {
      auto& row = rows[value.day.days()];
      row[first] = amountText(value.amount, figure.kind());
      if (former != nullptr) {
        if (const auto change = changeFrom(*former, value))
          row[first + 1] = amountText(change->amount, figure.kind());
      }
      if (figure.recap == nullptr && value.count) row[first + 2] = std::to_string(*value.count);
      former = &value;
    }
  }
  std::vector<ColumnSpec> columns;
  for (std::size_t i = 0; i < names.size(); ++i)
    columns.push_back({.name = names[i], .kind = kinds[i]});
  delete table_;
  grid_ = std::make_unique<Grid>("grdHistory", columns);
  grid_->setRedraw(false);
  // The newest day on top.
  for (auto row = rows.rbegin(); row != rows.rend(); ++row) {
    grid_->AddNew();
    grid_->set(0, Date(row->first).shortDateText());
    for (const auto& [column, text] : row->second)
      grid_->set(static_cast<int>(column), text);
  }
  if (grid_->Rows() > 0) grid_->MoveFirst();
  grid_->setRedraw(true);
  table_ = new GridPanel(*grid_, tableForm_);
  tableSpace_->addWidget(table_);
}

void HistoryPage::askAndForget() {
  const auto answer =
      QMessageBox::question(window(), tr("Delete History"),
                            tr("All kept days of this store are deleted. This cannot be undone."),
                            QMessageBox::Ok | QMessageBox::Cancel, QMessageBox::Cancel);
  if (answer == QMessageBox::Ok) keeper_.forget();
}

void HistoryPage::askAndSave() {
  const QString file =
      askForExportFile(window(), tr("History"), QStringLiteral("png"), tr("PNG picture (*.png)"));
  if (!file.isEmpty())
    exported(window(), file, savePng(captioned(chart_->picture(kPictureScale)), file));
}

}  // namespace dg
