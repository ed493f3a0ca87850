#include "desktop/window/form_dialog.h"

#include <QDialogButtonBox>
#include <QIcon>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

#include "desktop/grid/grid_actions.h"
#include "desktop/grid/grid_panel.h"
#include "desktop/window/access_keys.h"
#include "desktop/window/control_widgets.h"
#include "desktop/window/form_view.h"
#include "desktop/window/help_window.h"
#include "desktop/window/resources.h"
#include "desktop/window/text.h"
#include "desktop/window/user_settings.h"

namespace dg {

namespace {

constexpr int kLogo = 64;

QIcon arrow(bool right, const QPalette& palette) {
  constexpr int kSide = 48;
  QPixmap pixmap(kSide, kSide);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::Antialiasing);
  if (!right) {
    painter.translate(kSide, 0);
    painter.scale(-1, 1);
  }
  painter.setPen(
      QPen(palette.color(QPalette::ButtonText), 5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawLine(8, 24, 40, 24);
  painter.drawPolyline(QPolygon({{28, 12}, {40, 24}, {28, 36}}));
  return pixmap;
}

/// The direction in which the account setup's buttons move rows, two of which have the same text.
void addMoveArrows(const FormView& view) {
  for (int index = 0; index < 4; ++index) {
    auto* button = qobject_cast<QPushButton*>(view.widgetOf(elementName("cmdMove", index)));
    if (button == nullptr) continue;
    const bool right = index < 2;
    button->setIcon(arrow(right, button->palette()));
    button->setAccessibleName(right ? FormDialog::tr("%1 to the right").arg(button->text())
                                    : FormDialog::tr("%1 to the left").arg(button->text()));
  }
}

constexpr QSize kGridDialog{860, 560};
constexpr QSize kLogDialog{820, 520};

QString memoryName(const Form& form) {
  return QString::fromStdString(form.name());
}

}  // namespace

FormDialog::FormDialog(Form& form, QWidget* parent)
    : QDialog(parent),
      form_(form),
      view_(new FormView(form, this)),
      changed_(form.changed.connect([this] { setWindowTitle(titleText(form_.caption())); })) {
  setWindowTitle(titleText(form.caption()));
  setWindowFlag(Qt::WindowContextHelpButtonHint, false);
  setWindowFlag(Qt::WindowMaximizeButtonHint, true);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins({});
  layout->setSpacing(0);
  layout->addLayout(buildBody(), 1);
  if (view_->findChildren<ButtonWidget*>().isEmpty()) addCloseButton();
  keepKeysUnique(*this);
  adapt();
  addGridShortcuts(*this);
  addHelpKey(*this, form_.name());
}

QLayout* FormDialog::buildBody() {
  auto* body = new QHBoxLayout;
  body->setContentsMargins({});
  body->setSpacing(0);
  if (form_.name() == "frmAbout") {
    auto* logo = new QLabel(this);
    logo->setPixmap(programIcon().pixmap(QSize(kLogo, kLogo), devicePixelRatio()));
    logo->setContentsMargins(18, 14, 0, 0);
    body->addWidget(logo, 0, Qt::AlignTop);
  }
  if (form_.name() == "frmSetup") addMoveArrows(*view_);
  body->addWidget(view_, 1);
  return body;
}

/// Only what the user has chosen is remembered; what the contents ask for may be another the next
/// time.
FormDialog::~FormDialog() {
  if (size() != given_) UserSettings::saveWindow(*this, memoryName(form_));
}

void FormDialog::adapt() {
  const bool grids = !view_->findChildren<GridPanel*>().isEmpty();
  const auto areas = view_->findChildren<TextAreaWidget*>();
  QSize size = sizeHint();
  if (grids) size = size.expandedTo(kGridDialog);
  if (!areas.isEmpty()) size = size.expandedTo(kLogDialog);
  UserSettings::restoreWindow(*this, memoryName(form_), size);
  // Never smaller than the contents need and the screen has.
  resize(this->size().expandedTo(UserSettings::onScreen(*this, sizeHint())));
  given_ = this->size();

  // What a log has to tell stands at its end.
  if (form_.name() == "frmViewLog" && !areas.isEmpty()) {
    areas.first()->moveCursor(QTextCursor::End);
    areas.first()->setFocus();
  } else if (grids) {
    view_->findChildren<GridPanel*>().first()->setFocus();
  } else if (auto* button = view_->findChild<ButtonWidget*>()) {
    button->setFocus();
  }
}

void FormDialog::addCloseButton() {
  auto* box = new QDialogButtonBox(QDialogButtonBox::Close, this);
  box->setContentsMargins(14, 0, 14, 12);
  connect(box, &QDialogButtonBox::rejected, this, &FormDialog::reject);
  layout()->addWidget(box);
}

void FormDialog::reject() {
  auto* cancel = dynamic_cast<Button*>(form_.find("cmdCancel"));
  if (cancel != nullptr && !closing_) {
    closing_ = true;
    cancel->click();
    closing_ = false;
    if (!isVisible()) return;
  }
  QDialog::reject();
}

void FormDialog::closeForm() {
  closing_ = true;
  QDialog::accept();
}

void addGridShortcuts(QWidget& window) {
  const auto onKey = [&window](const QKeySequence& key, auto action) {
    auto* shortcut = new QShortcut(key, &window);
    QObject::connect(shortcut, &QShortcut::activated, &window, [&window, action] {
      if (GridPanel* panel = gridInFocus(window)) action(*panel);
    });
  };
  onKey(QKeySequence::Find, [](GridPanel& panel) { panel.find(); });
  onKey(GridActions::kExportKey, [](GridPanel& panel) { panel.actions().exportWorkbook(); });
  onKey(GridActions::kColumnKey, [](GridPanel& panel) { panel.actions().goToColumn(); });
  onKey(QKeySequence::Print, [](GridPanel& panel) { panel.actions().print(); });
}

}  // namespace dg
