#include "desktop/recap/limits_dialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

#include "desktop/recap/added_page.h"
#include "desktop/window/help_window.h"
#include "desktop/window/text.h"

namespace dg {

LimitsDialog::LimitsDialog(const AttentionLimits& limits, QWidget* parent) : QDialog(parent) {
  setObjectName(QStringLiteral("limits"));
  setWindowTitle(tr("Limits"));
  auto* layout = new QVBoxLayout(this);
  auto* form = new QFormLayout;
  for (const KindEntry& entry : attentionKinds()) {
    if (!entry.days) continue;
    auto* box = new QSpinBox(this);
    box->setRange(0, kMostDays);
    box->setSuffix(tr(" days"));
    box->setObjectName(fromBytes(entry.name));
    form->addRow(fromBytes(entry.caption), box);
    boxes_[entry.kind] = box;
  }
  layout->addLayout(form);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  QPushButton* restore = buttons->addButton(tr("&Restore defaults"), QDialogButtonBox::ResetRole);
  restore->setObjectName(QStringLiteral("restore"));
  connect(restore, &QPushButton::clicked, this, [this] { setLimits(defaultLimits()); });
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  layout->addWidget(buttons);
  setLimits(limits);
  addHelpKey(*this, kTodayPage);
}

void LimitsDialog::setLimits(const AttentionLimits& limits) {
  for (const auto& [kind, box] : boxes_)
    box->setValue(limits[static_cast<std::size_t>(kind)]);
}

AttentionLimits LimitsDialog::limits() const {
  AttentionLimits limits = defaultLimits();
  for (const auto& [kind, box] : boxes_)
    limits[static_cast<std::size_t>(kind)] = box->value();
  return limits;
}

}  // namespace dg
