#include "desktop/recap/added_page.h"

#include <QLabel>
#include <QToolButton>

#include "desktop/window/theme.h"

namespace dg {

AddedPage::AddedPage(const QString& title, QWidget* parent) : QWidget(parent) {
  setAccessibleName(title);
}

QLabel* AddedPage::titleLabel(QWidget* parent) const {
  auto* title = new QLabel(accessibleName(), parent);
  title->setTextFormat(Qt::PlainText);
  title->setFont(scaledFont(font(), 1.5, QFont::DemiBold));
  return title;
}

QToolButton* AddedPage::recapButton(QWidget* parent) {
  QToolButton* recap = headButton(tr("&Recap"), parent);
  connect(recap, &QToolButton::clicked, this, &AddedPage::recapRequested);
  return recap;
}

QToolButton* AddedPage::headButton(const QString& text, QWidget* parent) {
  auto* button = new QToolButton(parent);
  button->setText(text);
  button->setFocusPolicy(Qt::StrongFocus);
  return button;
}

}  // namespace dg
