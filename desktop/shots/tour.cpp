#include "desktop/shots/tour.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QLineEdit>
#include <QMenu>
#include <QTimer>
#include <filesystem>
#include <functional>

#include "desktop/grid/grid_actions.h"
#include "desktop/grid/grid_panel.h"
#include "desktop/grid/grid_view.h"
#include "desktop/recap/today_page.h"
#include "desktop/window/desktop_presenter.h"
#include "desktop/window/help_window.h"
#include "desktop/window/main_window.h"
#include "desktop/window/menu_bar.h"
#include "desktop/window/message_boxes.h"
#include "desktop/window/splash_window.h"
#include "desktop/window/view_stack.h"
#include "platform/environment.h"
#include "shell/main.h"
#include "shell/splash.h"
#include "views/view_catalogue.h"

namespace dg {

namespace {

struct Stop {
  const char* key;
  const char* picture;
};
constexpr Stop kStops[] = {
    {"R", "recap"},      {"A3", "receivables"}, {"A7", "warranties"},  {"A5", "ledger-assets"},
    {"I1", "inventory"}, {"I2", "floor-plan"},  {"I3", "units"},       {"A4", "open-sales"},
    {"A2", "shop"},      {"A6", "returns"},     {"L2", "liabilities"}, {"L1", "purchase-orders"},
    {"S2", "profit"},    {"S1", "sales"},
};

constexpr QSize kSize{1240, 800};

class Tour {
 public:
  Tour(const QString& folder, Surroundings& surroundings)
      : folder_(folder), surroundings_(surroundings) {}

  bool run();

 private:
  void save(QWidget& window, const QString& name);
  void visitViews(MainWindow& window);
  void visitMenus(MainWindow& window);
  void visitDetails(MainWindow& window);
  void visitErrors(MainWindow& window);
  /// Opens something modal and takes its picture, and those of the windows behind its first rows.
  void visitModal(const QString& name, const std::function<void()>& open);
  void photographDialog(const QString& name);

  QDir folder_;
  Surroundings& surroundings_;
  bool saved_ = true;
};

void Tour::save(QWidget& window, const QString& name) {
  QApplication::processEvents();
  QApplication::processEvents();
  const QPixmap picture = window.grab();
  saved_ = picture.save(folder_.filePath(name + ".png")) && saved_;
}

void Tour::photographDialog(const QString& name) {
  QWidget* modal = QApplication::activeModalWidget();
  if (modal == nullptr) return;
  save(*modal, name);
  for (GridPanel* panel : modal->findChildren<GridPanel*>()) {
    Grid& grid = panel->view().grid();
    for (int row = 0; row < qMin(grid.Rows(), 2) && grid.hasClickAction(); ++row) {
      visitModal(name + "-" + QString::number(row), [&grid, row] { grid.rowClick(row); });
    }
  }
  if (auto* dialog = qobject_cast<QDialog*>(modal)) dialog->reject();
}

void Tour::visitModal(const QString& name, const std::function<void()>& open) {
  QWidget* before = QApplication::activeModalWidget();
  QTimer::singleShot(0, qApp, [this, name, before] {
    if (QApplication::activeModalWidget() != before) photographDialog(name);
  });
  open();
  QApplication::processEvents();
}

void Tour::visitViews(MainWindow& window) {
  for (const Stop& stop : kStops) {
    window.form().tv1.click(stop.key);
    save(window, QString::fromLatin1(stop.picture));
  }
  window.menus().today()->trigger();
  save(window, "today");
  window.views().findChild<TodayPage*>()->open(AttentionKind::kShopOld);
  save(window, "today-rows");
  window.menus().charts()->trigger();
  save(window, "charts");
}

void Tour::visitMenus(MainWindow& window) {
  window.form().tv1.click("I1");
  for (QAction* head : window.menus().actions()) {
    head->menu()->popup(window.mapToGlobal(QPoint(0, 24)));
    save(*head->menu(), "menu-" + head->menu()->objectName());
    head->menu()->close();
  }
  GridPanel* panel = gridInFocus(window.views());
  if (panel == nullptr) return;
  panel->view().setFocus();
  panel->view().grid().headClick(2);
  panel->view().selectAll();
  QMenu* context = panel->actions().contextMenu();
  context->popup(window.mapToGlobal(QPoint(500, 200)));
  save(*context, "menu-context");
  context->close();
  panel->view().clearSelection();
  panel->filterBox().setText("70");
  save(window, "inventory-filtered");
  panel->filterBox().clear();
  visitModal("print-preview", [panel] { panel->actions().preview(); });
  visitModal("print", [panel] { panel->actions().print(); });
}

void Tour::visitDetails(MainWindow& window) {
  for (const Stop& stop : kStops) {
    window.form().tv1.click(stop.key);
    const View* view = window.form().CurrentView();
    for (const auto& control : view->controls()) {
      const QString name =
          QString::fromLatin1(stop.picture) + "-" + QString::fromStdString(control->name());
      if (auto* grid = dynamic_cast<Grid*>(control.get())) {
        for (int row = 0; row < qMin(grid->Rows(), 2) && grid->hasClickAction(); ++row)
          visitModal(name + "-" + QString::number(row), [grid, row] { grid->rowClick(row); });
      } else if (auto* button = dynamic_cast<Button*>(control.get())) {
        visitModal(name, [button] { button->click(); });
      }
    }
  }
  visitModal("log", [&window] { window.form().menuClick("mopt", 0); });
  visitModal("about", [&window] { window.form().menuClick("mhelp", 2); });
  visitModal("refused", [] { Main("", viewCatalogue()); });
  window.form().tv1.click("I1");
  window.form().menuClick("mhelp", 0);
  if (window.help() != nullptr) save(*window.help(), "help");
}

/// The recap of a store some of whose files are cut off.
void Tour::visitErrors(MainWindow& window) {
  for (const auto& entry : std::filesystem::recursive_directory_iterator(environment().shareRoot)) {
    const std::string name = entry.path().filename().string();
    if (name == "PARTDB" || name == "GLDB" || name == "CUSTDB")
      std::filesystem::resize_file(entry.path(), 600);
  }
  window.form().menuClick("mfile", 0);
  save(window, "recap-error");
}

bool Tour::run() {
  folder_.mkpath(".");
  surroundings_.useMessageBoxes(&showMessageBox);
  DesktopPresenter presenter;
  surroundings_.usePresenter(&presenter);
  int progress = 0;
  Connection watch = splash().lblProgress.refreshed.connect([&] {
    if (++progress == 6 && presenter.splashWindow() != nullptr) {
      save(*presenter.splashWindow(), "splash");
    }
  });
  const std::unique_ptr<frmTRVN> main = startProgram(viewCatalogue());
  watch.disconnect();
  MainWindow& window = *presenter.mainWindow();
  window.resize(kSize);  // whatever the screen is like
  visitViews(window);
  visitMenus(window);
  visitDetails(window);
  visitErrors(window);
  window.close();
  presenter.close();
  surroundings_.usePresenter(nullptr);
  return saved_;
}

}  // namespace

bool takeTour(const QString& folder, Surroundings& surroundings) {
  return Tour(folder, surroundings).run();
}

}  // namespace dg
