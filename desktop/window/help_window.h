#pragma once

#include <QUrl>
#include <QWidget>
#include <string_view>

class QListWidget;
class QTextBrowser;

namespace dg {

/// The users' guide: a list of its pages and the page on show. It stands beside the main window.
class HelpWindow : public QWidget {
  Q_OBJECT

 public:
  /// With a parent the window stands above it and can be used while that one is modal.
  explicit HelpWindow(QWidget* parent = nullptr);

  /// Shows the page of a view, by form name, or of an added item; the contents for any other name.
  void showPage(std::string_view view);
  QTextBrowser& browser() const { return *browser_; }

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  QWidget* buildTools();
  void open(const QString& page);
  void markPage(const QUrl& page);

  QListWidget* pages_;
  QTextBrowser* browser_;
  bool marking_ = false;
};

/// Lets F1 in a window open the guide at a page, above the window.
void addHelpKey(QWidget& window, std::string_view view);

/// The guide's page about a view.
QString helpPageOf(std::string_view view);

}  // namespace dg
