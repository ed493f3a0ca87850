#include "desktop/window/status_panes.h"

#include <QLabel>

#include "desktop/window/text.h"

namespace dg {

StatusPanes::StatusPanes(StatusBar& bar, QWidget* parent)
    : QStatusBar(parent), bar_(bar), binding_(bar, *this, [this] { update(); }) {
  for (std::size_t panel = 0; panel < bar.panels().size(); ++panel) {
    auto* pane = new QLabel(this);
    pane->setTextFormat(Qt::PlainText);
    pane->setMargin(3);
    const bool last = panel + 1 == bar.panels().size();
    addWidget(pane, last ? 3 : 1);
    panes_.append(pane);
  }
  binding_.apply(bar, *this);
}

void StatusPanes::update() {
  for (qsizetype panel = 0; panel < panes_.size(); ++panel) {
    const QString text = cellText(bar_.panels()[static_cast<std::size_t>(panel)]);
    if (panes_[panel]->text() == text) continue;
    panes_[panel]->setText(text);
    panes_[panel]->setToolTip(plainToolTip(text));
  }
}

}  // namespace dg
