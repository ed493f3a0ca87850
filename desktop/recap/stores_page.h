#pragma once

#include <memory>

#include "desktop/recap/added_page.h"
#include "forms/form.h"

class QJsonObject;
class QLabel;
class QProcess;
class QProgressBar;
class QToolButton;
class QVBoxLayout;

namespace dg {

class GridPanel;

/// The stores of the server side by side, a row each, and their totals. A dgtool of its own reads
/// them while this window stays alive; the user can end it.
class StoresPage : public AddedPage {
  Q_OBJECT

 public:
  /// `tool`: the program that reads the stores; empty: none was found.
  explicit StoresPage(QString tool, QWidget* parent = nullptr);
  ~StoresPage() override;

  /// Where dgtool is: beside this program, in the build's folder for tools, or in the path.
  static QString findTool();

  /// Reads the stores unless that has been done.
  void opened() override;
  /// Reads all stores anew; nothing while that goes on.
  void load();
  void cancel();
  bool isLoading() const { return process_ != nullptr; }
  /// The table, null before anything was read.
  GridPanel* table() const { return table_; }

 Q_SIGNALS:
  void loadEnded();

 private:
  QWidget* buildHead();
  void readProgress();
  void processEnded(int status);
  void endProcess();
  void tell(const QString& text);
  void showStores(const QJsonObject& document);

  QString tool_;
  QLabel* note_;
  QProgressBar* progress_;
  QToolButton* reload_ = nullptr;
  QToolButton* cancel_ = nullptr;
  QVBoxLayout* tableSpace_ = nullptr;
  QProcess* process_ = nullptr;
  QByteArray told_;  ///< what the process has said so far that is no progress
  Form tableForm_{"stores", "Stores"};
  std::unique_ptr<Grid> grid_;
  GridPanel* table_ = nullptr;
};

/// Starts this program once more, on another store of the server. Returns whether it has started.
bool openStoreWindow(const QString& directory);

}  // namespace dg
