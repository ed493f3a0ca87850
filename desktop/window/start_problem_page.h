#pragma once

#include <QWidget>

#include "shell/start_problem.h"

namespace dg {

/// Stands in the place of the views when the start found no store: what is missing, where it was
/// looked for, what to do.
class StartProblemPage : public QWidget {
  Q_OBJECT

 public:
  explicit StartProblemPage(const StartProblem& problem, QWidget* parent = nullptr);

 Q_SIGNALS:
  void tryAgain();
};

}  // namespace dg
