#include "desktop/window/form_view.h"

#include <QLabel>
#include <QSet>
#include <QVBoxLayout>
#include <utility>

#include "desktop/grid/grid_panel.h"
#include "desktop/grid/grid_view.h"
#include "desktop/window/control_widgets.h"
#include "desktop/window/label_widget.h"
#include "desktop/window/notice_strip.h"
#include "desktop/window/sheet_layout.h"
#include "desktop/window/table_foot.h"
#include "desktop/window/text.h"
#include "forms/form_bands.h"
#include "shell/view_log.h"

namespace dg {

namespace {

SheetLayout* layoutOf(QWidget* container) {
  return static_cast<SheetLayout*>(container->layout());
}

}  // namespace

FormView::FormView(Form& form, QWidget* parent)
    : QWidget(parent),
      form_(form),
      strip_(new NoticeStrip(this)),
      sheet_(new QWidget(this)),
      changed_(form.changed.connect([this] { showChange(); })),
      refreshed_(form.refreshed.connect([this] { repaint(); })) {
  setObjectName(QString::fromStdString(form.name()));
  setAccessibleName(formTitle(form));
  auto* outer = new QVBoxLayout(this);
  outer->setContentsMargins({});
  outer->setSpacing(0);
  outer->addWidget(strip_);
  outer->addWidget(sheet_, 1);
  strip_->addButton(tr("View Log"), &showLogViewer);
  auto* layout = new SheetLayout(sheet_);
  layout->setContentsMargins(14, 10, 14, 12);
  // Frames come first: the controls on them need them as parents.
  for (const auto& control : form.controls()) {
    if (auto* frame = dynamic_cast<Frame*>(control.get())) {
      auto* box = new FrameWidget(*frame, sheet_);
      new SheetLayout(box);
    }
  }
  for (const Place& where : form.sheet())
    place(where);
  placeRemaining();
  putTotalsUnderColumns();
  for (FrameWidget* box : findChildren<FrameWidget*>())
    layoutOf(box)->finish();
  layout->finish();
  showChange();
}

QWidget* FormView::widgetOf(std::string_view control) const {
  return findChild<QWidget*>(QString::fromUtf8(control.data(), static_cast<int>(control.size())));
}

QWidget* FormView::makeWidget(Control& control, QWidget* parent) {
  if (auto* label = dynamic_cast<Label*>(&control)) return new LabelWidget(*label, parent);
  if (auto* grid = dynamic_cast<Grid*>(&control)) {
    return new GridPanel(*grid, form_, parent);
  }
  if (auto* button = dynamic_cast<Button*>(&control)) return new ButtonWidget(*button, parent);
  if (auto* combo = dynamic_cast<ComboBox*>(&control)) return new ComboWidget(*combo, parent);
  if (auto* bar = dynamic_cast<ProgressBar*>(&control)) return new ProgressWidget(*bar, parent);
  if (auto* area = dynamic_cast<TextArea*>(&control)) return new TextAreaWidget(*area, parent);
  if (dynamic_cast<Frame*>(&control) != nullptr) return widgetOf(control.name());
  return nullptr;
}

QWidget* FormView::containerOf(std::string_view frame) {
  QWidget* box = frame.empty() ? nullptr : widgetOf(frame);
  return box == nullptr ? sheet_ : box;
}

void FormView::place(const Place& where) {
  Control* control = form_.find(where.control);
  if (control == nullptr) return;
  QWidget* container = containerOf(where.frame);
  QWidget* widget = makeWidget(*control, container);
  if (widget == nullptr) return;
  if (auto* label = qobject_cast<QLabel*>(widget); label != nullptr && where.figure)
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  layoutOf(container)->addControl(widget, where.row, where.column, where.rowSpan, where.columnSpan);
}

void FormView::placeRemaining() {
  QSet<QString> placed;
  for (const Place& where : form_.sheet()) {
    placed.insert(QString::fromUtf8(where.control.data(), static_cast<int>(where.control.size())));
  }
  SheetLayout* sheet = layoutOf(sheet_);
  for (const auto& control : form_.controls()) {
    if (placed.contains(QString::fromStdString(control->name()))) continue;
    QWidget* widget = makeWidget(*control, sheet_);
    if (widget != nullptr) sheet->addControl(widget, sheet->nextRow(), 0, 1, 1);
  }
}

/// A total takes the words before it along.
void FormView::putTotalsUnderColumns() {
  SheetLayout& layout = *layoutOf(sheet_);
  const GridPanel* table = nullptr;
  for (const Place& total : form_.sheet()) {
    QWidget* widget = widgetOf(total.control);
    if (const auto* panel = qobject_cast<const GridPanel*>(widget)) table = panel;
    if (total.under.empty() || table == nullptr) continue;
    GridView& view = table->view();
    auto* foot = new TableFoot(view, view.grid().columnIndex(total.under), sheet_);
    for (const Place& place : form_.sheet()) {
      if (place.row != total.row || !place.frame.empty()) continue;
      QWidget* each = widgetOf(place.control);
      layout.removeWidget(each);
      const auto* label = dynamic_cast<const Label*>(form_.find(place.control));
      const bool words = label != nullptr && label->role() == LabelRole::kCaption;
      words || each == widget ? foot->addTotal(each) : foot->addBeside(each);
    }
    layout.addControl(foot, total.row, 0, 1, layout.columns());
  }
}

void FormView::setMissing(bool missing) {
  if (std::exchange(missing_, missing) != missing) showChange();
}

void FormView::showChange() {
  strip_->tell(form_.incomplete() ? tr("Could not be read completely.") : QString());
  for (GridView* table : findChildren<GridView*>())
    table->setWhole(!form_.incomplete() && !missing_);
  if (form_.mousePointer() == kHourglass) {
    setCursor(Qt::WaitCursor);
  } else {
    unsetCursor();
  }
}

QString formTitle(const Form& form) {
  return cellText(titleOf(form));
}

}  // namespace dg
