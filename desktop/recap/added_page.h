#pragma once

#include <QWidget>
#include <string_view>

class QLabel;
class QToolButton;

namespace dg {

// The names of the pages that others lead to as well.
inline constexpr std::string_view kChartsPage = "charts";
inline constexpr std::string_view kTodayPage = "today";

/// A page of the desktop's own, on show in the place of a view.
class AddedPage : public QWidget {
  Q_OBJECT

 public:
  /// `title` is what the page is called; its name is that of its item in the View menu.
  AddedPage(const QString& title, QWidget* parent);

  /// The page goes on show, for the first time or again.
  virtual void opened() = 0;

 Q_SIGNALS:
  void recapRequested();
  void logRequested();
  /// The user wants to see another store of the server, in a window of its own.
  void storeRequested(const QString& directory);

 protected:
  /// The page's title, large.
  QLabel* titleLabel(QWidget* parent) const;
  /// The button that leads back to the recap.
  QToolButton* recapButton(QWidget* parent);
  /// A button for the page's head, which the keyboard reaches.
  static QToolButton* headButton(const QString& text, QWidget* parent);
};

}  // namespace dg
