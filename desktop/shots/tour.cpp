#include "desktop/shots/tour.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QLineEdit>
#include <QMenu>
#include <QScreen>
#include <QTimer>
#include <cstdio>
#include <filesystem>
#include <functional>

#include "desktop/grid/grid_actions.h"
#include "desktop/grid/grid_panel.h"
#include "desktop/grid/grid_view.h"
#include "desktop/recap/history_keeper.h"
#include "desktop/recap/stores_page.h"
#include "desktop/recap/today_page.h"
#include "desktop/window/added_items.h"
#include "desktop/window/desktop_presenter.h"
#include "desktop/window/help_window.h"
#include "desktop/window/label_widget.h"
#include "desktop/window/main_window.h"
#include "desktop/window/menu_bar.h"
#include "desktop/window/message_boxes.h"
#include "desktop/window/splash_window.h"
#include "desktop/window/view_stack.h"
#include "platform/clock.h"
#include "platform/environment.h"
#include "shell/main.h"
#include "shell/splash.h"
#include "shell/write_log.h"
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

/// Days before today on which the history of the tour was kept.
constexpr int kKeptDays[] = {60, 45, 30, 21, 14, 9, 7, 2, 1, 0};

class Tour {
 public:
  Tour(const QString& folder, Surroundings& surroundings)
      : folder_(folder), surroundings_(surroundings) {}

  bool run();

 private:
  void save(QWidget& window, const QString& name);
  void visitViews(MainWindow& window);
  void visitAddedPages(MainWindow& window);
  void visitMenus(MainWindow& window);
  void visitDetails(MainWindow& window);
  void visitErrors(MainWindow& window);
  void visitFirstStart(DesktopPresenter& presenter);
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
  // A label that is cut tells its whole text in a tip.
  for (const LabelWidget* label : window.findChildren<LabelWidget*>()) {
    if (label->isVisible() && !label->toolTip().isEmpty())
      std::fprintf(stderr, "cut in %s: %s\n", qPrintable(name), qPrintable(label->text()));
  }
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
}

void Tour::visitAddedPages(MainWindow& window) {
  for (const AddedItem& item : addedItems()) {
    const QString name = QString::fromLatin1(item.name);
    QAction* action = window.menus().item(item.name);
    if (item.makePage == nullptr) {
      visitModal(name, [action] { action->trigger(); });
      continue;
    }
    action->trigger();
    save(window, name);
  }
  auto* stores = window.views().findChild<StoresPage*>();
  while (stores->isLoading())
    QApplication::processEvents(QEventLoop::WaitForMoreEvents);
  save(window, "stores-read");

  auto* today = window.views().findChild<TodayPage*>();
  window.menus().item("today")->trigger();
  today->open(AttentionKind::kShopOld);
  save(window, "today-rows");
  visitModal("limits", [today] { today->editLimits(); });

  // A history grows by a day at each load.
  const Date moment = now();
  window.views().keeper().start();
  for (const int before : kKeptDays) {
    surroundings_.useClock(Date(moment.days() - before, moment.secondOfDay()));
    window.form().menuClick("mfile", 0);
    QApplication::processEvents();
  }
  save(window, "recap-changes");
  window.menus().item("history")->trigger();
  save(window, "history-kept");
  window.form().tv1.click("R");
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
  window.form().tv1.click("I1");
  save(window, "inventory-error");
  window.menus().item("today")->trigger();
  save(window, "today-error");
  const std::filesystem::path share = environment().shareRoot;
  std::filesystem::rename(share, share.string() + "-gone");
  gsLogFile += "/none";
  window.form().menuClick("mfile", 0);
  save(window, "recap-no-share");
}

/// The window of a start that finds nothing.
void Tour::visitFirstStart(DesktopPresenter& presenter) {
  const std::unique_ptr<frmTRVN> main = startProgram(viewCatalogue());
  presenter.mainWindow()->resize(presenter.mainWindow()->screen()->availableSize());
  save(*presenter.mainWindow(), "first-start");
  presenter.close();
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
  std::unique_ptr<frmTRVN> main = startProgram(viewCatalogue());
  watch.disconnect();
  MainWindow& window = *presenter.mainWindow();
  window.resize(window.screen()->availableSize());
  visitViews(window);
  visitMenus(window);
  visitDetails(window);
  visitAddedPages(window);
  visitErrors(window);
  surroundings_.useMessageBoxes({});  // what they tell stands in the window too
  window.close();
  presenter.close();
  main.reset();
  visitFirstStart(presenter);
  surroundings_.usePresenter(nullptr);
  return saved_;
}

}  // namespace

bool takeTour(const QString& folder, Surroundings& surroundings) {
  return Tour(folder, surroundings).run();
}

}  // namespace dg
