#pragma once

#include <QWidget>
#include <functional>

class QLabel;
class QHBoxLayout;

namespace dg {

/// A line across a window that tells of something the figures below it do not show, with buttons
/// for what can be done. Hidden while there is nothing to tell.
class NoticeStrip : public QWidget {
  Q_OBJECT

 public:
  explicit NoticeStrip(QWidget* parent = nullptr);

  /// Shows a text; hides the strip for an empty one.
  void tell(const QString& text);
  QString text() const;
  void addButton(const QString& caption, std::function<void()> action);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QHBoxLayout* layout_;
  QLabel* text_;
};

}  // namespace dg
