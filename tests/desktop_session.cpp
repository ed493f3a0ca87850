#include "tests/desktop_session.h"

#include <QApplication>
#include <QHeaderView>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <filesystem>

#include "desktop/grid/grid_view.h"
#include "desktop/window/message_boxes.h"
#include "desktop/window/tree_panel.h"
#include "desktop/window/view_stack.h"
#include "platform/file.h"
#include "shell/main.h"
#include "shell/splash.h"
#include "tools/sample/sample_store.h"
#include "views/view_catalogue.h"

namespace dg {

DesktopSession::~DesktopSession() {
  presenter.close();
  main_.reset();
  releaseSplash();
  setPresenter(nullptr);
  silenceMessageBoxes(false);  // as a test of the program's end leaves them
}

void DesktopSession::start(const std::vector<std::string>& missing) {
  const std::string store = run.folder.file("store");
  writeSampleStore(store, {});
  std::vector<std::filesystem::path> doomed;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(store)) {
    const std::string name = entry.path().filename().string();
    if (std::find(missing.begin(), missing.end(), name) != missing.end())
      doomed.push_back(entry.path());
  }
  for (const auto& path : doomed)
    std::filesystem::remove_all(path);
  run.openOnDisk(store);
  environment().settingsFile = run.folder.file("DealerGauge.ini");
  setPresenter(&presenter);
  main_ = startProgram(viewCatalogue());
  QApplication::setActiveWindow(&window());
  QApplication::processEvents();
}

void DesktopSession::end() {
  window().close();
  QApplication::processEvents();
}

void DesktopSession::clickNode(const std::string& key) const {
  TreePanel& tree = window().tree();
  const QRect where = tree.visualItemRect(tree.itemOf(key));
  QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, where.center());
}

QWidget& DesktopSession::page() const {
  return *window().views().currentWidget();
}

bool withDialog(const std::function<void()>& action,
                const std::function<void(QDialog&)>& atDialog) {
  const QWidget* before = QApplication::activeModalWidget();
  bool shown = false;
  QTimer::singleShot(0, qApp, [&] {
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr || dialog == before) return;
    shown = true;
    QApplication::setActiveWindow(dialog);
    atDialog(*dialog);
    if (QApplication::activeModalWidget() == dialog) dialog->reject();
  });
  action();
  QApplication::processEvents();
  return shown;
}

void clickCell(GridView& view, int row, int column, Qt::KeyboardModifiers modifiers) {
  const QModelIndex index = view.model()->index(row, column);
  view.scrollTo(index);
  QTest::mouseClick(view.viewport(), Qt::LeftButton, modifiers, view.visualRect(index).center());
}

void clickHead(GridView& view, int column) {
  QHeaderView* header = view.horizontalHeader();
  view.scrollTo(view.model()->index(0, column));
  const QPoint where(header->sectionViewportPosition(column) + header->sectionSize(column) / 2,
                     header->height() - 6);
  QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, where);
}

}  // namespace dg
