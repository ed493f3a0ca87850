#include "desktop/window/status_panes.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QUrl>

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

void StatusPanes::showExport(const QString& file) {
  if (export_ == nullptr) addExportPane();
  const QString url = QString::fromLatin1(QUrl::fromLocalFile(file).toEncoded());
  export_->setText(tr("Saved as %1  <a href=\"%2\">Open</a>")
                       .arg(QFileInfo(file).fileName().toHtmlEscaped(), url.toHtmlEscaped()));
  export_->setToolTip(plainToolTip(QDir::toNativeSeparators(file)));
}

void StatusPanes::addExportPane() {
  export_ = new QLabel(this);
  export_->setTextFormat(Qt::RichText);
  export_->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
  export_->setContentsMargins(8, 0, 8, 0);
  connect(export_, &QLabel::linkActivated, this,
          [](const QString& link) { QDesktopServices::openUrl(QUrl(link)); });
  addPermanentWidget(export_);
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
