#include <QAction>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QSignalSpy>
#include <gtest/gtest.h>

#include "desktop/grid/grid_view.h"
#include "desktop/recap/history_keeper.h"
#include "desktop/recap/morning_report.h"
#include "desktop/recap/stores_page.h"
#include "desktop/recap/todays_work.h"
#include "desktop/window/menu_bar.h"
#include "desktop/window/view_stack.h"
#include "shell/recap_sheet.h"
#include "tests/desktop_session.h"

namespace dg {
namespace {

constexpr int kLongest = 120'000;

bool isTold(const StoresPage& page, const QString& text) {
  for (const auto* label : page.findChildren<QLabel*>()) {
    if (label->text().contains(text)) return true;
  }
  return false;
}

/// The example store's link table names a second store, which is not there.
TEST(DesktopStoresTest, AToolOfItsOwnReadsThemAndAClickAsksForAWindow) {
  DesktopSession session;
  session.start();
  StoresPage page(QStringLiteral(DG_DGTOOL));
  QSignalSpy ended(&page, &StoresPage::loadEnded);
  page.load();
  EXPECT_TRUE(page.isLoading());
  ASSERT_TRUE(ended.wait(kLongest));
  ASSERT_NE(page.table(), nullptr);
  Grid& grid = page.table()->view().grid();
  ASSERT_EQ(grid.Rows(), 3);
  EXPECT_EQ(grid.CellValue("Units", 0), recapLabel(Figure::kUnits).caption());
  EXPECT_EQ(grid.CellValue("Units", 2), recapLabel(Figure::kUnits).caption());
  EXPECT_EQ(grid.CellValue("Name", 1).substr(0, 9), "not read:");
  EXPECT_EQ(grid.CellValue("Name", 2), "1 of 2 stores");
  QSignalSpy asked(&page, &StoresPage::storeRequested);
  grid.rowClick(2);
  EXPECT_EQ(asked.count(), 0) << "the total is no store";
  grid.rowClick(0);
  ASSERT_EQ(asked.count(), 1);
  EXPECT_EQ(asked[0][0].toString(), "LNK001");

  page.load();
  page.cancel();
  EXPECT_FALSE(page.isLoading());
  EXPECT_TRUE(isTold(page, "Cancelled"));
  EXPECT_EQ(grid.Rows(), 3) << "what was read stays";
  session.end();
}

TEST(DesktopStoresTest, AToolThatIsNotThereIsTold) {
  StoresPage page(QStringLiteral("/none/dgtool"));
  QSignalSpy ended(&page, &StoresPage::loadEnded);
  page.load();
  ASSERT_TRUE(ended.count() > 0 || ended.wait(kLongest));
  EXPECT_TRUE(isTold(page, "cannot be started"));
  StoresPage none{QString()};
  none.load();
  EXPECT_TRUE(isTold(none, "is not installed"));
}

TEST(DesktopStoresTest, TheMorningReportIsOfWhatIsOnShowAndStandsBehindTheOtherPages) {
  DesktopSession session;
  session.start();
  QStringList last;
  const QList<QAction*> items =
      session.window().menus().findChild<QMenu*>(QStringLiteral("mnuView"))->actions();
  for (const QAction* action : items.last(5))
    last += action->text();
  EXPECT_EQ(last.join(u'/'), "Charts/Today/History/Morning Report.../Stores");
  EXPECT_TRUE(withDialog([&] { session.window().menus().item("morningReport")->trigger(); },
                         [](QDialog& dialog) { dialog.reject(); }));
  const TodaysWork work;
  const HistoryKeeper keeper(session.form(), work);
  const QByteArray page = morningReport(session.form(), work, keeper);
  EXPECT_TRUE(page.contains(recapLabel(Figure::kUnits).caption().c_str()));
  EXPECT_TRUE(page.contains("What needs attention"));
  session.end();
}

}  // namespace
}  // namespace dg
