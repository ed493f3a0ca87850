#pragma once

#include <QList>
#include <QWidget>

#include "forms/form.h"

namespace dg {

class NoticeStrip;

/// Draws a form: a widget for each of its controls, where the form's sheet puts it. Controls
/// without a place stand one below the other under the sheet. A form that could not be read
/// completely says so in a strip above its sheet.
///
/// The form outlives its view.
class FormView : public QWidget {
  Q_OBJECT

 public:
  explicit FormView(Form& form, QWidget* parent = nullptr);

  Form& form() const { return form_; }
  /// The widget of a control, or null.
  QWidget* widgetOf(std::string_view control) const;
  /// Whether files are missing that the form does not know of: an empty table is none then.
  void setMissing(bool missing);

 private:
  QWidget* makeWidget(Control& control, QWidget* parent);
  QWidget* containerOf(std::string_view frame);
  void place(const Place& place);
  void placeRemaining();
  void putTotalsUnderColumns();
  void showChange();

  Form& form_;
  NoticeStrip* strip_;
  QWidget* sheet_;
  bool missing_ = false;
  Connection changed_;
  Connection refreshed_;
};

/// What the user reads as a form's name: its title label, else its caption.
QString formTitle(const Form& form);

}  // namespace dg
