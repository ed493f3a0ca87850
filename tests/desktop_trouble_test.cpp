// What the desktop program tells when the store, the share, the log or the history fails it.
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <filesystem>
#include <gtest/gtest.h>
#include <utility>

#include "desktop/grid/grid_view.h"
#include "desktop/recap/history_keeper.h"
#include "desktop/window/menu_bar.h"
#include "desktop/window/notice_strip.h"
#include "desktop/window/share_waiting.h"
#include "desktop/window/start_problem_page.h"
#include "desktop/window/view_stack.h"
#include "shell/view_log.h"
#include "shell/write_log.h"
#include "tests/desktop_session.h"
#include "tests/support/scopes.h"
#include "tests/support/silent_line.h"
#ifndef Q_OS_WIN
#include "tests/support/unprivileged.h"
#endif

namespace dg {
namespace {

QString shownNotice(const QWidget& window) {
  QStringList texts;
  for (const NoticeStrip* strip : window.findChildren<NoticeStrip*>()) {
    if (strip->isVisible()) texts.append(strip->text());
  }
  return texts.join(u'|');
}

TEST(DesktopTroubleTest, AStartWithoutAStoreSaysWhatIsMissingAndOffersWhatCanBeDone) {
  const std::pair<const char*, const char*> cases[] = {{"cQTCatalog.ini", "settings file"},
                                                       {"SRV1", "share cannot be reached"},
                                                       {"ttymap", "table of terminals"}};
  for (const auto& [missing, told] : cases) {
    DesktopSession session;
    session.start({missing});
    auto* page = qobject_cast<StartProblemPage*>(&session.page());
    ASSERT_NE(page, nullptr) << missing;
    QString texts;
    for (const QLabel* label : page->findChildren<QLabel*>())
      texts += label->text();
    EXPECT_TRUE(texts.contains(told) && texts.contains(missing)) << texts.toStdString();
    for (const int item : {0, 14})
      EXPECT_FALSE(session.window().menus().item("mview", item)->isEnabled());
    EXPECT_FALSE(session.window().menus().item("mfile", 0)->isEnabled());
    EXPECT_TRUE(session.window().menus().item("mopt", 0)->isEnabled());
    QSignalSpy again(&session.window(), &MainWindow::startAgain);
    page->findChild<QPushButton*>()->click();
    EXPECT_EQ(again.count(), 1) << "Try Again";
    session.end();
  }
}

TEST(DesktopTroubleTest, WhatCouldNotBeReadIsToldAboveTheFigures) {
  namespace fs = std::filesystem;
  DesktopSession session;
  session.start();
  EXPECT_EQ(shownNotice(session.window()), "");
  const fs::path store = session.run.folder.file("store");
  fs::resize_file(store / "share/SRV1/VLMRLNK/LNK001/PARTDB", 600);
  session.form().menuClick("mfile", 0);
  session.clickNode("I1");
  EXPECT_EQ(shownNotice(session.window()), "Could not be read completely.");
  EXPECT_EQ(session.page().findChild<GridView*>()->emptyText(), "Nothing could be read");

  fs::rename(store / "share", store / "gone");
  session.form().menuClick("mfile", 0);
  EXPECT_TRUE(shownNotice(session.window()).contains("\\\\SRV1\\VLMRLNK\\")) << "the share's name";
  session.clickNode("A6");
  EXPECT_EQ(session.page().findChild<GridView*>()->emptyText(), "Nothing could be read");
  session.end();
}

TEST(DesktopTroubleTest, ClosingTheWindowEndsALoadWhoseShareIsSilent) {
  DesktopSession session;
  session.start();
  const ReadAheadSettingsScope far({.near = kEveryLineIsFar, .patience = std::chrono::hours(1)});
  const ShareWaiting waiting;
  {
    const test::SilentLine line(10);
    QTimer::singleShot(0, &session.window(), [&session] { session.window().close(); });
    session.form().menuClick("mfile", 0);
    EXPECT_NE(session.form().lostShare(), "");
    EXPECT_TRUE(QTest::qWaitFor([&session] { return !session.window().isVisible(); }));
  }
  session.end();
}

#ifndef Q_OS_WIN
/// A log that cannot be written is told at the first line that is lost.
TEST(DesktopNoticeTest, ALogWithoutPermissionOrRoomIsToldAtOnce) {
  DesktopSession session;
  session.start();
  ASSERT_EQ(shownNotice(session.window()), "");
  const std::string folder = session.run.folder.file("store/temp");
  std::filesystem::remove(folder + "/dgoperation.log");
  std::filesystem::permissions(folder, std::filesystem::perms(0555));
  {
    const Unprivileged user;
    logLine("lost");
  }
  EXPECT_TRUE(shownNotice(session.window()).contains("cannot be written: Permission denied"));
  frmViewLog viewer;
  viewer.Form_Load();
  EXPECT_EQ(viewer.lblEmpty.caption(), "The log cannot be written: Permission denied.");
  std::filesystem::permissions(folder, std::filesystem::perms(0755));
  logLine("kept");
  const std::string file = std::exchange(gsLogFile, "/dev/full");
  logLine("lost");
  EXPECT_TRUE(shownNotice(session.window()).contains("/dev/full cannot be written: Disk full"));
  gsLogFile = file;
  session.end();
}
#endif

/// Nothing is kept before the user asks for it; from then on each refresh keeps the day.
TEST(DesktopHistoryTest, KeepsNothingUntilItIsAsked) {
  DesktopSession session;
  session.start();
  session.window().views().open("history");
  auto* start = session.page().findChild<QPushButton*>();
  ASSERT_NE(start, nullptr);
  EXPECT_FALSE(std::filesystem::exists(session.run.folder.file("data")));
  EXPECT_FALSE(HistoryKeeper::isKeeping());

#ifndef Q_OS_WIN
  std::filesystem::permissions(session.run.folder.path(), std::filesystem::perms(0555));
  {
    const Unprivileged user;
    start->click();
  }
  std::filesystem::permissions(session.run.folder.path(), std::filesystem::perms(0755));
  EXPECT_FALSE(session.window().views().keeper().trouble().isEmpty())
      << "a home without permission";
  EXPECT_FALSE(std::filesystem::exists(session.run.folder.file("data")));
  session.form().menuClick("mfile", 0);
  QApplication::processEvents();
#else
  start->click();
#endif
  EXPECT_TRUE(HistoryKeeper::isKeeping());
  const HistoryKeeper& keeper = session.window().views().keeper();
  ASSERT_NE(keeper.history(), nullptr);
  const auto days = keeper.history()->days(keeper.store());
  ASSERT_EQ(days.size(), 1U);
  EXPECT_EQ(days[0].isoText(), "2026-11-24");
  session.form().menuClick("mfile", 0);
  EXPECT_EQ(keeper.history()->days(keeper.store()).size(), 1U) << "a day is kept once";

  // What needs attention is kept too, and shown with its count.
  session.window().views().open("history");
  auto* figure = session.page().findChild<QComboBox*>();
  figure->setCurrentText(QStringLiteral("Old units"));
  Q_EMIT figure->activated(figure->currentIndex());
  const QAbstractItemModel& table = *session.page().findChild<GridView*>()->model();
  const auto kept =
      keeper.history()->values(keeper.store(), {FigureSource::kAttention, "units-old"});
  ASSERT_EQ(kept.size(), 1U);
  EXPECT_GT(kept[0].count, 0);
  ASSERT_EQ(table.columnCount(), 4);
  EXPECT_EQ(table.index(0, 3).data().toString(), QString::number(*kept[0].count));
  session.end();
}

}  // namespace
}  // namespace dg
