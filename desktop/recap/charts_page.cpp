#include "desktop/recap/charts_page.h"

#include <QApplication>
#include <QBuffer>
#include <QButtonGroup>
#include <QGridLayout>
#include <QLabel>
#include <QPainter>
#include <QScrollArea>
#include <QStyle>
#include <QToolButton>

#include "desktop/grid/export_files.h"
#include "desktop/print/print_document.h"
#include "desktop/recap/bar_chart.h"
#include "desktop/window/text.h"
#include "shell/recap_sheet.h"

namespace dg {

namespace {

constexpr double kPictureScale = 2;
constexpr int kGap = 16;
constexpr int kMargin = 20;

}  // namespace

ChartsPage::ChartsPage(const frmTRVN& main, QWidget* parent)
    : AddedPage(tr("Charts"), parent),
      main_(main),
      periods_(new QButtonGroup(this)),
      assets_(new BarChart),
      inventory_(new BarChart),
      sales_(new BarChart) {
  auto* outer = new QVBoxLayout(this);
  outer->setContentsMargins({});
  auto* scroll = new QScrollArea(this);
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setWidgetResizable(true);
  scroll->setFocusPolicy(Qt::NoFocus);
  outer->addWidget(scroll);

  auto* sheet = new QWidget;
  sheet_ = new QGridLayout(sheet);
  sheet_->setContentsMargins(kMargin, 16, kMargin, kMargin);
  sheet_->setSpacing(kGap);
  sheet_->setColumnStretch(0, 1);
  sheet_->setColumnStretch(1, 1);
  sheet_->setRowStretch(4, 1);
  sheet_->addWidget(buildHead(), 0, 0, 1, 2);
  sales_->setTools(buildPeriods());
  arrange();
  scroll->setWidget(sheet);

  for (BarChart* chart : {assets_, inventory_, sales_}) {
    connect(chart, &BarChart::saveRequested, this, [this, chart] { askAndSave(chart); });
  }
}

void ChartsPage::arrange() {
  for (BarChart* chart : {assets_, inventory_, sales_})
    sheet_->removeWidget(chart);
  sheet_->addWidget(assets_, 1, 0, 1, wide_ ? 1 : 2);
  sheet_->addWidget(inventory_, wide_ ? 1 : 2, wide_ ? 1 : 0, 1, wide_ ? 1 : 2);
  sheet_->addWidget(sales_, 3, 0, 1, 2);
}

void ChartsPage::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  const int needed = 2 * (assets_->minimumSizeHint().width() + kMargin) + kGap +
                     style()->pixelMetric(QStyle::PM_ScrollBarExtent);
  const bool wide = width() >= needed;
  if (wide == wide_) return;
  wide_ = wide;
  arrange();
}

QWidget* ChartsPage::buildHead() {
  auto* head = new QWidget(this);
  auto* layout = new QHBoxLayout(head);
  layout->setContentsMargins({});
  layout->addWidget(titleLabel(head), 1);
  layout->addWidget(recapButton(head));
  QToolButton* save = headButton(tr("&Save as Picture..."), head);
  connect(save, &QToolButton::clicked, this, [this] { askAndSave(nullptr); });
  layout->addWidget(save);
  return head;
}

QWidget* ChartsPage::buildPeriods() {
  auto* row = new QWidget;
  auto* layout = new QHBoxLayout(row);
  layout->setContentsMargins({});
  layout->setSpacing(4);
  const std::array<std::pair<ChartPeriod, QString>, 3> choices = {{
      {ChartPeriod::kMonth, tr("&Month")},
      {ChartPeriod::kYear, tr("&Year")},
      {ChartPeriod::kLastYear, tr("&Last Year")},
  }};
  for (const auto& [period, text] : choices) {
    QToolButton* choice = headButton(text, row);
    choice->setCheckable(true);
    choice->setChecked(period == period_);
    periods_->addButton(choice, static_cast<int>(period));
    layout->addWidget(choice);
  }
  connect(periods_, &QButtonGroup::idClicked, this,
          [this](int id) { setPeriod(static_cast<ChartPeriod>(id)); });
  return row;
}

void ChartsPage::opened() {
  assets_->setData(assetChart(main_));
  inventory_->setData(inventoryChart(main_));
  sales_->setData(salesChart(main_, period_));
}

void ChartsPage::setPeriod(ChartPeriod period) {
  period_ = period;
  periods_->button(static_cast<int>(period))->setChecked(true);
  sales_->setData(salesChart(main_, period));
}

bool ChartsPage::savePicture(const QString& file) const {
  const QList<BarChart*> charts = {assets_, inventory_, sales_};
  QRect area;
  for (const BarChart* chart : charts)
    area |= chart->geometry();
  const int foot = fontMetrics().height() + kGap;
  area.adjust(-kGap, -kGap, kGap, kGap + foot);
  QImage whole(area.size() * kPictureScale, QImage::Format_ARGB32_Premultiplied);
  whole.setDevicePixelRatio(kPictureScale);
  whole.fill(palette().color(QPalette::Window));
  QPainter painter(&whole);
  for (const BarChart* chart : charts)
    painter.drawImage(chart->pos() - area.topLeft(), chart->picture(kPictureScale));
  painter.setPen(palette().color(QPalette::WindowText));
  painter.drawText(QRect(kGap, area.height() - foot - kGap / 2, area.width() - 2 * kGap, foot),
                   Qt::AlignLeft | Qt::AlignVCenter, pictureCaption());
  painter.end();
  return savePng(whole, file);
}

void ChartsPage::askAndSave(const BarChart* chart) {
  const QString file =
      askForExportFile(window(), tr("Charts"), QStringLiteral("png"), tr("PNG picture (*.png)"));
  if (file.isEmpty()) return;
  const bool saved = chart == nullptr ? savePicture(file)
                                      : savePng(captioned(chart->picture(kPictureScale)), file);
  exported(window(), file, saved);
}

QString pictureCaption() {
  return QStringList{printStore(), fromBytes(figuresAsOf())}.join(QStringLiteral("     "));
}

QImage captioned(const QImage& picture) {
  const double scale = picture.devicePixelRatio();
  const QFont font = QApplication::font();
  const int foot = QFontMetrics(font).height() * 2;
  QImage whole(picture.width(), picture.height() + static_cast<int>(foot * scale),
               picture.format());
  whole.setDevicePixelRatio(scale);
  whole.fill(QApplication::palette().color(QPalette::Window));
  QPainter painter(&whole);
  painter.drawImage(0, 0, picture);
  painter.setFont(font);
  painter.setPen(QApplication::palette().color(QPalette::WindowText));
  const QSizeF size = QSizeF(whole.size()) / scale;
  painter.drawText(QRectF(foot / 2.0, size.height() - foot, size.width() - foot, foot),
                   Qt::AlignLeft | Qt::AlignVCenter, pictureCaption());
  return whole;
}

bool savePng(const QImage& picture, const QString& file) {
  QBuffer bytes;
  bytes.open(QIODevice::WriteOnly);
  return picture.save(&bytes, "PNG") && writeFile(file, bytes.data());
}

}  // namespace dg
