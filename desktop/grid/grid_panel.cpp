#include "desktop/grid/grid_panel.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QMainWindow>
#include <QMenu>
#include <QStatusBar>
#include <QVBoxLayout>

#include "desktop/grid/grid_actions.h"
#include "desktop/grid/grid_model.h"
#include "desktop/grid/grid_sums.h"
#include "desktop/grid/grid_view.h"
#include "desktop/window/menu_button.h"
#include "desktop/window/text.h"
#include "desktop/window/theme.h"
#include "forms/form_bands.h"

namespace dg {

namespace {

MenuButton* menuButton(QMenu* menu, const QString& name) {
  auto* button = new MenuButton(menu);
  button->setAccessibleName(name);
  button->setToolTip(name);
  button->setAutoRaise(true);
  button->setFocusPolicy(Qt::TabFocus);
  return button;
}

}  // namespace

GridPanel::GridPanel(Grid& grid, const Form& form, QWidget* parent)
    : QWidget(parent),
      grid_(grid),
      view_(new GridView(grid, QString::fromStdString(form.name() + "." + grid.name()), this)),
      actions_(new GridActions(*view_, form, this)),
      heading_(new QLabel(this)),
      count_(new QLabel(this)),
      filter_(new QLineEdit(this)),
      binding_(grid, *this, [this] { update(); }) {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins({});
  layout->setSpacing(4);
  layout->addWidget(buildTools());
  layout->addWidget(view_, 1);
  setFocusProxy(view_);
  view_->setAccessibleName(cellText(gridTitle(form, grid)));

  connect(filter_, &QLineEdit::textChanged, view_, &GridView::setFilter);
  connect(view_, &GridView::rowsChanged, this, &GridPanel::showCount);
  connect(view_, &GridView::selectionShown, this, &GridPanel::showSelection);
  applyColors();
  connect(actions_, &GridActions::findRequested, this, &GridPanel::find);
  showCount();
  binding_.apply(grid, *this);
}

QWidget* GridPanel::buildTools() {
  auto* tools = new QWidget(this);
  auto* layout = new QHBoxLayout(tools);
  layout->setContentsMargins({});
  heading_->setTextFormat(Qt::PlainText);
  heading_->setFont(scaledFont(font(), 1.08, QFont::DemiBold));
  count_->setTextFormat(Qt::PlainText);

  filter_->setPlaceholderText(tr("Filter"));
  filter_->setAccessibleName(tr("Filter %1").arg(view_->accessibleName()));
  filter_->setToolTip(tr("Shows only the rows that hold these words (Ctrl+F)"));
  filter_->setClearButtonEnabled(true);
  filter_->setMinimumWidth(fontMetrics().averageCharWidth() * 9);
  filter_->setMaximumWidth(fontMetrics().averageCharWidth() * 30);
  filter_->installEventFilter(this);

  layout->addWidget(heading_);
  layout->addWidget(count_);
  layout->addStretch(1);
  layout->addWidget(filter_, 2);
  // Lists to choose from are no report: their filter takes the room.
  if (grid_.multiSelect) {
    filter_->setMaximumWidth(QWIDGETSIZE_MAX);
    return tools;
  }
  layout->addWidget(menuButton(actions_->exportMenu(), tr("Export the rows on show")));
  layout->addWidget(menuButton(actions_->printMenu(), tr("Print the rows on show")));
  return tools;
}

void GridPanel::update() {
  const QString heading = cellText(grid_.heading());
  if (heading_->text() != heading) heading_->setText(heading);
  heading_->setVisible(!heading.isEmpty());
}

void GridPanel::showCount() {
  const QLocale locale(QLocale::English, QLocale::UnitedStates);
  const int shown = view_->gridModel().rowCount();
  const int all = grid_.Rows();
  QString text = all == 1 ? tr("1 row") : tr("%1 rows").arg(locale.toString(all));
  if (shown != all) {
    text = tr("%1 of %2").arg(locale.toString(shown), text);
    if (const QString sums = shownSums(*view_); !sums.isEmpty())
      text += u' ' + tr("(%1)").arg(sums);
  }
  count_->setText(text);
}

/// In the main window's status bar; a dialog has none, there it stands beside the count.
void GridPanel::showSelection() {
  const QString summary = selectionSummary(*view_);
  if (auto* main = qobject_cast<QMainWindow*>(window())) {
    main->statusBar()->showMessage(summary);
    return;
  }
  showCount();
  if (!summary.isEmpty()) count_->setText(count_->text() + QStringLiteral("     ") + summary);
}

/// Styles differ in how faint they make what is less important; on some dark grounds it is not
/// read.
void GridPanel::applyColors() {
  QPalette quiet = count_->palette();
  const QColor color = mutedColor(QApplication::palette(this));
  quiet.setColor(QPalette::WindowText, color);
  count_->setPalette(quiet);
  QPalette box = filter_->palette();
  box.setColor(QPalette::PlaceholderText, color);
  filter_->setPalette(box);
}

void GridPanel::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::ApplicationPaletteChange || event->type() == QEvent::StyleChange) {
    applyColors();
  }
}

void GridPanel::find() {
  filter_->setFocus(Qt::ShortcutFocusReason);
  filter_->selectAll();
}

bool GridPanel::eventFilter(QObject* watched, QEvent* event) {
  if (watched != filter_ || event->type() != QEvent::KeyPress) {
    return QWidget::eventFilter(watched, event);
  }
  switch (static_cast<QKeyEvent*>(event)->key()) {
    case Qt::Key_Escape:
      // The first Esc shows all rows again; only one in an empty filter closes a dialog.
      if (filter_->text().isEmpty()) return false;
      filter_->clear();
      view_->setFocus();
      return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Down:
      view_->setFocus();
      return true;
    default:
      return false;
  }
}

GridPanel* gridInFocus(const QWidget& window) {
  for (QWidget* widget = QApplication::focusWidget(); widget != nullptr;
       widget = widget->parentWidget()) {
    auto* panel = qobject_cast<GridPanel*>(widget);
    if (panel != nullptr && panel->window() == window.window()) return panel;
  }
  for (GridPanel* panel : window.findChildren<GridPanel*>()) {
    if (panel->isVisible()) return panel;
  }
  return nullptr;
}

}  // namespace dg
