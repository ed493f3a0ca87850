#include "desktop/window/launch.h"

#include <QApplication>
#include <QIcon>
#include <QTimer>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <new>

#include "desktop/window/desktop_presenter.h"
#include "desktop/window/main_window.h"
#include "desktop/window/message_boxes.h"
#include "desktop/window/resources.h"
#include "desktop/window/share_waiting.h"
#include "desktop/window/shutdown_signals.h"
#include "platform/out_of_memory.h"
#include "shell/main.h"
#include "shell/splash.h"
#include "shell/surroundings.h"
#include "views/view_catalogue.h"

#ifdef Q_OS_WIN
#include <qt_windows.h>
#endif

namespace dg {

namespace {

/// What the event loop returns when the program shall start anew.
constexpr int kStartAgain = -1;

QtMessageHandler defaultHandler = nullptr;

/// While the application object is made: a platform that cannot be started is fatal for Qt, which
/// would abort. The user gets a plain message and an exit status instead.
void reportNoDisplay(QtMsgType type, const QMessageLogContext& context, const QString& text) {
  if (type != QtFatalMsg) {
    if (type == QtCriticalMsg) defaultHandler(type, context, text);
    return;
  }
  std::fputs(
      "Dealer Gauge 2: there is no display to show windows on.\n"
      "Start it from a desktop session, or set DISPLAY or WAYLAND_DISPLAY. "
      "\"dgtool report\" prints the same figures without one.\n",
      stderr);
  std::_Exit(kNoDisplay);
}

/// Ends the program where memory runs out in an event: Qt's own loops pass no exception on.
class Application final : public QApplication {
 public:
  using QApplication::QApplication;

  bool notify(QObject* receiver, QEvent* event) override {
    try {
      return QApplication::notify(receiver, event);
    } catch (const std::bad_alloc&) {
      endOutOfMemory();
    }
  }

 private:
  [[noreturn]] static void endOutOfMemory() {
    tellOutOfMemory(kProgramName);
    try {
      showMessageBox({.title = {}, .text = "Out of memory", .style = kCritical});
    } catch (const std::bad_alloc&) {  // NOLINT(bugprone-empty-catch): it has been told
    }
    std::_Exit(kOutOfMemoryStatus);
  }
};

std::unique_ptr<QApplication> makeApplication(int& argc, char** argv) {
#ifdef Q_OS_WIN
  // Follow the user's choice of dark mode, window frames included.
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
    qputenv("QT_QPA_PLATFORM", "windows:darkmode=2");
  }
  QApplication::setStyle(QStringLiteral("Fusion"));
#endif
  defaultHandler = qInstallMessageHandler(&reportNoDisplay);
  auto application = std::make_unique<Application>(argc, argv);
  qInstallMessageHandler(defaultHandler);
  return application;
}

}  // namespace

std::string commandTail(int argc, char** argv) {
#ifdef Q_OS_WIN
  // The command line as it was typed: behind the program's name, quoted or not, and the blanks.
  Q_UNUSED(argc);
  Q_UNUSED(argv);
  const char* tail = GetCommandLineA();
  const bool quoted = *tail == '"';
  if (quoted) ++tail;
  while (*tail != '\0' && (quoted ? *tail != '"' : *tail != ' ' && *tail != '\t'))
    ++tail;
  if (quoted && *tail == '"') ++tail;
  while (*tail == ' ' || *tail == '\t')
    ++tail;
  return tail;
#else
  std::string tail;
  for (int i = 1; i < argc; ++i) {
    if (i > 1) tail += ' ';
    tail += argv[i];
  }
  return tail;
#endif
}

void endProgram(const DesktopPresenter& presenter) {
  silenceMessageBoxes(true);
  const MainWindow* window = presenter.mainWindow();
  QWidget* onTop = QApplication::activePopupWidget();
  if (onTop == nullptr) onTop = QApplication::activeModalWidget();
  if (onTop == nullptr && window != nullptr && !window->form().loading()) {
    QApplication::closeAllWindows();
    return;
  }
  ShareWaiting::wishEnd();
  if (onTop != nullptr) onTop->close();
  constexpr int kPause = 100;
  QTimer::singleShot(kPause, qApp, [&presenter] { endProgram(presenter); });
}

int runDesktop(int argc, char** argv) {
  endWhenOutOfMemory(kProgramName, kOutOfMemoryStatus);
  const std::string tail = commandTail(argc, argv);
  // The token is all that the program takes; Qt's own options stay in environment variables.
  int ownCount = 1;
  char* ownArguments[] = {argv[0], nullptr};
  const std::unique_ptr<QApplication> application = makeApplication(ownCount, ownArguments);
  initializeResources();
  QApplication::setApplicationName(QStringLiteral("DealerGauge"));
  QApplication::setApplicationVersion(QString::fromStdString(versionText()));
  QApplication::setDesktopFileName(QStringLiteral("dealergauge"));
  QApplication::setWindowIcon(programIcon());
  QApplication::setQuitOnLastWindowClosed(false);

  Surroundings surroundings;
  surroundings.useMessageBoxes(&showMessageBox);
  DesktopPresenter presenter;
  surroundings.usePresenter(&presenter);
  const ShareWaiting waiting;
  const ShutdownSignals signals;
  QObject::connect(&signals, &ShutdownSignals::requested, application.get(),
                   [&presenter] { endProgram(presenter); });
  int status = kStartAgain;
  while (status == kStartAgain) {
    status = kRefused;
    const std::unique_ptr<frmTRVN> main = Main(tail, viewCatalogue());
    if (!main) break;
    QObject::connect(presenter.mainWindow(), &MainWindow::startAgain, application.get(),
                     [] { QApplication::exit(kStartAgain); });
    status = QApplication::exec();
    // However the event loop ended, the program's end is logged; a second time does nothing.
    presenter.close();
    main->Form_Unload();
  }
  surroundings.usePresenter(nullptr);
  return status;
}

}  // namespace dg
