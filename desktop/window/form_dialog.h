#pragma once

#include <QDialog>

#include "forms/form.h"

namespace dg {

class FormView;

/// Shows a form as a dialog. Esc and the window's close button press the form's "cmdCancel" where
/// it has one. A form without buttons gets one that closes it.
class FormDialog : public QDialog {
  Q_OBJECT

 public:
  explicit FormDialog(Form& form, QWidget* parent = nullptr);
  ~FormDialog() override;

  Form& form() const { return form_; }

  void reject() override;
  /// The form has unloaded itself.
  void closeForm();

 private:
  QLayout* buildBody();
  void addCloseButton();
  void adapt();

  Form& form_;
  FormView* view_;
  Connection changed_;
  QSize given_;  ///< the size that it opened with
  bool closing_ = false;
};

/// Window-wide shortcuts for its grids: Ctrl+F finds, Ctrl+P prints.
void addGridShortcuts(QWidget& window);

}  // namespace dg
