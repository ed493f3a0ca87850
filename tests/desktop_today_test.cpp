#include <QLabel>
#include <QProgressDialog>
#include <QPushButton>
#include <QSpinBox>
#include <QTimer>
#include <gtest/gtest.h>

#include "desktop/grid/grid_view.h"
#include "desktop/recap/attention_rows.h"
#include "desktop/recap/today_page.h"
#include "desktop/window/menu_bar.h"
#include "desktop/window/view_stack.h"
#include "tests/desktop_session.h"

namespace dg {
namespace {

class DesktopTodayTest : public testing::Test {
 protected:
  TodayPage& openPage() {
    session_.window().menus().item(kTodayPage)->trigger();
    return *session_.window().views().findChild<TodayPage*>();
  }
  static QString cardText(const TodayPage& page, const char* kind) {
    QStringList texts;
    for (const QLabel* label :
         page.findChild<QWidget*>(QString("card-") + kind)->findChildren<QLabel*>())
      texts += label->text();
    return texts.join('\n');
  }
  QString recapLine() { return session_.page().findChild<QPushButton*>("todayLine")->text(); }

  DesktopSession session_;
};

TEST_F(DesktopTodayTest, TheRecapsLineLeadsToCardsTheirRowsAndADocument) {
  session_.start();
  EXPECT_TRUE(recapLine().startsWith("Today: ")) << recapLine().toStdString();
  session_.page().findChild<QPushButton*>("todayLine")->click();
  ASSERT_EQ(session_.window().views().addedOnShow(), kTodayPage);
  TodayPage& page = *session_.window().views().findChild<TodayPage*>();
  // Each family's document opens from its own kind.
  for (const AttentionKind kind :
       {AttentionKind::kShopOld, AttentionKind::kOrdersOld, AttentionKind::kWarrantiesOld,
        AttentionKind::kPurchaseOrdersOld, AttentionKind::kReturnsOld, AttentionKind::kUnitsOld,
        AttentionKind::kFloorPlanDue}) {
    page.open(kind);
    auto* panel = gridInFocus(page);
    ASSERT_NE(panel, nullptr);
    Grid& grid = panel->view().grid();
    EXPECT_EQ(grid.name(), entryOf(kind).name);
    EXPECT_TRUE(withDialog([&grid] { grid.rowClick(0); }, [](QDialog&) {})) << grid.name();
  }
}

TEST_F(DesktopTodayTest, LimitsAreKeptAndRestored) {
  session_.start();
  TodayPage& page = openPage();
  const QString before = cardText(page, "shop-old");
  const auto edit = [&page](const std::function<void(QDialog&)>& change) {
    EXPECT_TRUE(withDialog([&page] { page.editLimits(); },
                           [&change](QDialog& dialog) {
                             change(dialog);
                             dialog.accept();
                           }));
  };
  edit([](QDialog& dialog) { dialog.findChild<QSpinBox*>("shop-old")->setValue(1); });
  EXPECT_NE(cardText(page, "shop-old"), before);
  EXPECT_EQ(TodaysWork().limits()[static_cast<std::size_t>(AttentionKind::kShopOld)], 1);
  edit([](QDialog& dialog) { dialog.findChild<QPushButton*>("restore")->click(); });
  EXPECT_EQ(cardText(page, "shop-old"), before);
  EXPECT_EQ(TodaysWork().limits(), defaultLimits());
}

TEST_F(DesktopTodayTest, WholeFilesAreReadWhenAskedForUntilTheNextRefresh) {
  session_.start();
  TodayPage& page = openPage();
  EXPECT_TRUE(cardText(page, "customers-past-due").contains("Not read yet"));
  page.open(AttentionKind::kCustomersPastDue);
  EXPECT_EQ(gridInFocus(page)->view().grid().name(), "customers-past-due");
  openPage();
  EXPECT_TRUE(cardText(page, "customers-over-limit").contains("$"));
  session_.form().menuClick("mfile", 0);
  openPage();
  EXPECT_TRUE(cardText(page, "customers-past-due").contains("Not read yet"));

  TodaysWork cancelled;
  for (const AttentionKind kind : {AttentionKind::kCustomersPastDue, AttentionKind::kPartsIdle}) {
    int asked = 0;
    EXPECT_FALSE(cancelled.read(kind, [&](std::int64_t, std::int64_t) { return ++asked < 2; }));
    EXPECT_FALSE(cancelled.result(kind)) << "half a file's rows are none";
    EXPECT_TRUE(cancelled.read(kind, {}));
    EXPECT_TRUE(cancelled.result(kind));
  }
}

TEST_F(DesktopTodayTest, AKindInErrorSaysSoAndTheOthersStand) {
  session_.start({"UNITDB"});
  TodayPage& page = openPage();
  EXPECT_TRUE(cardText(page, "units-old").contains("Could not be read"));
  EXPECT_TRUE(cardText(page, "shop-old").contains("$"));
}

}  // namespace
}  // namespace dg
