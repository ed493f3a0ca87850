#include "desktop/window/start_problem_page.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/window/text.h"
#include "desktop/window/theme.h"
#include "shell/view_log.h"

namespace dg {

namespace {

constexpr int kWidest = 640;

QLabel* paragraph(const QString& text, QWidget* parent) {
  auto* label = new QLabel(text, parent);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  return label;
}

}  // namespace

StartProblemPage::StartProblemPage(const StartProblem& problem, QWidget* parent) : QWidget(parent) {
  auto* sheet = new QWidget(this);
  sheet->setMaximumWidth(kWidest);
  auto* layout = new QVBoxLayout(sheet);
  layout->setSpacing(12);
  auto* title = paragraph(tr("There are no figures to show"), sheet);
  title->setFont(scaledFont(font(), 1.4, QFont::DemiBold));
  layout->addWidget(title);
  layout->addWidget(paragraph(fromBytes(problem.missing), sheet));
  layout->addWidget(paragraph(tr("Looked for: %1").arg(fromBytes(problem.looked)), sheet));
  layout->addWidget(paragraph(fromBytes(problem.advice), sheet));

  auto* again = new QPushButton(tr("Try &Again"), sheet);
  again->setDefault(true);
  connect(again, &QPushButton::clicked, this, &StartProblemPage::tryAgain);
  auto* log = new QPushButton(tr("View &Log"), sheet);
  connect(log, &QPushButton::clicked, this, [] { showLogViewer(); });
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(again);
  buttons->addWidget(log);
  buttons->addStretch(1);
  layout->addLayout(buttons);
  setFocusProxy(again);

  auto* across = new QHBoxLayout;
  across->addStretch(1);
  across->addWidget(sheet, 8);
  across->addStretch(1);
  auto* down = new QVBoxLayout(this);
  down->addStretch(1);
  down->addLayout(across);
  down->addStretch(2);
}

}  // namespace dg
