#include "desktop/window/main_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QShortcut>
#include <QSplitter>
#include <QStyle>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWindow>

#include "desktop/grid/export_files.h"
#include "desktop/grid/grid_actions.h"
#include "desktop/grid/grid_panel.h"
#include "desktop/print/print_document.h"
#include "desktop/recap/history_keeper.h"
#include "desktop/recap/recap_view.h"
#include "desktop/recap/stores_page.h"
#include "desktop/window/added_items.h"
#include "desktop/window/form_view.h"
#include "desktop/window/help_window.h"
#include "desktop/window/label_widget.h"
#include "desktop/window/menu_bar.h"
#include "desktop/window/message_boxes.h"
#include "desktop/window/notice_strip.h"
#include "desktop/window/platform_help.h"
#include "desktop/window/share_waiting.h"
#include "desktop/window/start_problem_page.h"
#include "desktop/window/status_panes.h"
#include "desktop/window/text.h"
#include "desktop/window/theme.h"
#include "desktop/window/tree_panel.h"
#include "desktop/window/user_settings.h"
#include "desktop/window/view_stack.h"
#include "platform/unopened_files.h"
#include "shell/recap_sheet.h"
#include "shell/write_log.h"

namespace dg {

namespace {

constexpr QSize kSize{1480, 920};
constexpr const char* kMemory = "main";
constexpr const char* kSplitterMemory = "mainSplitter";

bool isUserInput(QEvent::Type type) {
  switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
    case QEvent::Shortcut:
    case QEvent::ContextMenu:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
      return true;
    default:
      return false;
  }
}

}  // namespace

MainWindow::MainWindow(frmTRVN& form, TodaysWork& work)
    : form_(form),
      menus_(new MenuBar(this)),
      tree_(new TreePanel(form.tv1, this)),
      views_(new ViewStack(form, work, this)),
      splitter_(new QSplitter(this)),
      status_(new StatusPanes(form.sb1, this)),
      shareNotice_(new NoticeStrip(this)),
      logNotice_(new NoticeStrip(this)) {
  setObjectName(QString::fromStdString(form.name()));
  setWindowTitle(cellText(form.caption()));
  setMenuBar(menus_);
  splitter_->addWidget(tree_);
  splitter_->addWidget(views_);
  splitter_->setStretchFactor(1, 1);
  splitter_->setChildrenCollapsible(false);
  splitter_->setHandleWidth(1);

  auto* whole = new QWidget(this);
  auto* layout = new QVBoxLayout(whole);
  layout->setContentsMargins({});
  layout->setSpacing(0);
  layout->addWidget(buildBand());
  logNotice_->addButton(tr("View Log"), [this] { form_.menuClick("mopt", 0); });
  layout->addWidget(shareNotice_);
  layout->addWidget(logNotice_);
  layout->addWidget(splitter_, 1);
  setCentralWidget(whole);
  setStatusBar(status_);

  connectForm();
  UserSettings::restoreWindow(*this, kMemory, kSize);
  if (!splitter_->restoreState(UserSettings::state(kSplitterMemory))) {
    splitter_->setSizes({tree_->sizeHint().width(), kSize.width()});
  }
  qApp->installEventFilter(this);
}

MainWindow::~MainWindow() {
  qApp->removeEventFilter(this);
  setExportNotice({});
  delete help_;
}

QWidget* MainWindow::buildBand() {
  auto* band = new QWidget(this);
  auto* layout = new QHBoxLayout(band);
  layout->setContentsMargins(14, 8, 14, 8);
  auto* store = new LabelWidget(form_.lblStoreName, band);
  store->setFont(scaledFont(font(), 1.25, QFont::DemiBold));
  layout->addWidget(store, 1);
  auto* refresh = new QToolButton(band);
  refresh->setObjectName(QStringLiteral("refresh"));
  refresh->setText(tr("Refresh"));
  refresh->setToolTip(tr("Reads all files anew (F5)"));
  refresh->setIcon(style()->standardIcon(QStyle::SP_BrowserReload));
  refresh->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  refresh->setAutoRaise(true);
  connect(refresh, &QToolButton::clicked, menus_->item("mfile", 0), &QAction::trigger);
  refresh->setEnabled(form_.CurrentView() != nullptr);
  asOf_ = new QLabel(band);
  asOf_->setTextFormat(Qt::PlainText);
  layout->addWidget(asOf_);
  layout->addWidget(refresh);
  layout->addSpacing(14);
  layout->addWidget(new LabelWidget(form_.Label1, band));
  return band;
}

void MainWindow::connectForm() {
  setPrintStore(labelText(form_.lblStoreName.caption()).trimmed());
  form_.onExit = [this] { close(); };
  form_.onHelp = [this] { showHelp(); };
  viewShown_ = form_.viewShown.connect([this](View* view) {
    if (view != nullptr) views_->showView(*view);
    showNotices();
  });
  if (View* current = form_.CurrentView()) views_->showView(*current);

  ShareWaiting::wishEnd(false);
  loadEnded_ = form_.loadEnded.connect([this] {
    showNotices();
    views_->tellToday();
    // The load counts as running until its listeners have been told.
    QTimer::singleShot(0, this, &MainWindow::afterLoad);
  });
  if (form_.CurrentView() != nullptr) QTimer::singleShot(0, this, &MainWindow::afterLoad);
  logFailed_ = logFailed().connect([this] { showNotices(); });
  showNotices();
  showStartProblem();

  connect(menus_->tableMenu(), &QMenu::aboutToShow, this, &MainWindow::fillTableMenu);
  connect(menus_, &MenuBar::picked, this, &MainWindow::pick);
  connect(menus_, &MenuBar::addedPicked, this, [this](const AddedItem& item) {
    if (!form_.loading()) views_->open(item);
  });
  connect(views_, &ViewStack::storeRequested, this, [this](const QString& directory) {
    if (!openStoreWindow(directory))
      showWarning(this, tr("Stores"), tr("A second window cannot be opened."));
  });
  // No node stands for an added page; the last one is marked again with the next click.
  connect(views_, &ViewStack::addedOpened, tree_, &TreePanel::unmark);
  connect(views_, &ViewStack::recapRequested, this, [this] { form_.tv1.click("R"); });
  connect(views_, &ViewStack::logRequested, this, [this] { form_.menuClick("mopt", 0); });
  connect(views_, &ViewStack::viewRequested, this, &MainWindow::goTo);
  setExportNotice([this](const QString& file) { status_->showExport(file); });
  auto* findKey = new QShortcut(QKeySequence::Find, this);
  connect(findKey, &QShortcut::activated, this, &MainWindow::find);
  auto* printKey = new QShortcut(QKeySequence::Print, this);
  connect(printKey, &QShortcut::activated, this, &MainWindow::print);
  auto* exportKey = new QShortcut(GridActions::kExportKey, this);
  connect(exportKey, &QShortcut::activated, this, [this] {
    if (GridPanel* panel = gridInFocus(*views_)) panel->actions().exportWorkbook();
  });
  auto* columnKey = new QShortcut(GridActions::kColumnKey, this);
  connect(columnKey, &QShortcut::activated, this, [this] {
    if (GridPanel* panel = gridInFocus(*views_)) panel->actions().goToColumn();
  });
}

void MainWindow::pick(const QString& menu, int index) {
  if (form_.loading()) return;
  form_.menuClick(menu.toStdString(), index);
}

void MainWindow::afterLoad() {
  views_->keeper().keepDay();
  if (ShareWaiting::isEndWished()) close();
}

void MainWindow::showNotices() {
  const View* view = form_.CurrentView();
  asOf_->setText(fromBytes(figuresAsOf(view != nullptr ? view->figuresOf : std::nullopt)));
  QString share;
  if (!form_.lostShare().empty()) {
    share = tr("The share %1 cannot be reached. What was to be read from it since is missing here.")
                .arg(fromBytes(form_.lostShare()));
  } else if (const UnopenedFiles& unopened = unopenedFiles(); unopened.count > 0) {
    QStringList names;
    for (const std::string& name : unopened.names)
      names.append(cellText(name));
    share = unopened.count == 1
                ? tr("A file could not be opened, and is missing in the figures: %1").arg(names[0])
                : tr("%1 files could not be opened, and are missing in the figures: %2")
                      .arg(unopened.count)
                      .arg(names.join(QStringLiteral(", ")));
    if (unopened.count > unopened.names.size()) share += QStringLiteral(", ...");
  }
  shareNotice_->tell(share);
  for (FormView* page : views_->findChildren<FormView*>())
    page->setMissing(!share.isEmpty());
  logNotice_->tell(logFailure()
                       ? tr("The log %1 cannot be written: %2.")
                             .arg(fromBytes(gsLogFile), fromBytes(logFailure()->description()))
                       : QString());
}

/// Without a store there is nothing to go to, and nothing to refresh.
void MainWindow::showStartProblem() {
  const std::optional<StartProblem> problem = startProblem(form_);
  menus_->setStoreThere(!problem);
  if (!problem) return;
  auto* page = new StartProblemPage(*problem, this);
  connect(page, &StartProblemPage::tryAgain, this, &MainWindow::startAgain);
  views_->showStandIn(page);
  tree_->hide();
}

void MainWindow::goTo(const QString& view) {
  for (const TreeEntry& entry : treeEntries()) {
    if (!entry.view.empty() && view.toStdString() == entry.view) {
      form_.tv1.click(std::string(entry.key));
      return;
    }
  }
}

/// The table menu offers what the table in focus offers; its own keys stand beside the items.
void MainWindow::fillTableMenu() {
  QMenu& menu = *menus_->tableMenu();
  menu.clear();
  GridPanel* panel = gridInFocus(*views_);
  if (panel == nullptr) {
    menu.addAction(tr("No table is on show"))->setEnabled(false);
    return;
  }
  panel->actions().update();
  menu.addActions(panel->actions().contextMenu()->actions());
}

void MainWindow::find() {
  if (GridPanel* panel = gridInFocus(*views_)) panel->find();
}

void MainWindow::print() {
  if (auto* recap = qobject_cast<RecapView*>(views_->currentWidget())) {
    recap->print();
  } else if (GridPanel* panel = gridInFocus(*views_)) {
    panel->actions().print();
  }
}

void MainWindow::showHelp() {
  if (showPlatformHelp(*this)) return;
  if (help_ == nullptr) help_ = new HelpWindow;
  const std::string_view added = views_->addedOnShow();
  if (!added.empty()) {
    help_->showPage(added);
  } else if (const View* view = form_.CurrentView()) {
    help_->showPage(view->name());
  } else {
    help_->showPage("frmViewLog");  // nothing was loaded: what can be done then stands there
  }
}

void MainWindow::closeEvent(QCloseEvent* event) {
  if (form_.loading()) {
    // What the load is at still belongs to it; it ends soon, and the window with it.
    ShareWaiting::wishEnd();
    event->ignore();
    return;
  }
  ShareWaiting::wishEnd(false);
  UserSettings::saveWindow(*this, kMemory);
  UserSettings::setState(kSplitterMemory, splitter_->saveState());
  if (help_ != nullptr) help_->close();
  // The views go before the program's end is logged, and their pages before them.
  viewShown_.disconnect();
  loadEnded_.disconnect();
  logFailed_.disconnect();
  views_->dropAll();
  form_.Form_Unload();
  event->accept();
  QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
  if (!form_.loading() || !isUserInput(event->type())) {
    return QMainWindow::eventFilter(watched, event);
  }
  const auto* widget = qobject_cast<QWidget*>(watched);
  const bool mine = watched == windowHandle() || qobject_cast<QAction*>(watched) != nullptr ||
                    qobject_cast<QShortcut*>(watched) != nullptr ||
                    (widget != nullptr && widget->window() == this);
  return mine || QMainWindow::eventFilter(watched, event);
}

}  // namespace dg
