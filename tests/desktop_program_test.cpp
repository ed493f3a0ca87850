#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTimer>
#include <gtest/gtest.h>

#include "desktop/grid/grid_view.h"
#include "desktop/recap/bar_chart.h"
#include "desktop/recap/chart_data.h"
#include "desktop/recap/charts_page.h"
#include "desktop/window/added_items.h"
#include "desktop/window/help_window.h"
#include "desktop/window/label_widget.h"
#include "desktop/window/launch.h"
#include "desktop/window/menu_bar.h"
#include "desktop/window/message_boxes.h"
#include "desktop/window/splash_window.h"
#include "desktop/window/tree_panel.h"
#include "desktop/window/view_stack.h"
#include "shell/recap_sheet.h"
#include "shell/splash.h"
#include "tests/desktop_session.h"
#include "tools/sample/sample_store.h"

namespace dg {
namespace {

class DesktopProgramTest : public testing::Test {
 protected:
  QString text(const char* name) { return session_.widget<LabelWidget>(name).text(); }

  DesktopSession session_;
};

TEST_F(DesktopProgramTest, ShowsTheRecapFirstWithStoreAndStatus) {
  session_.start();
  EXPECT_EQ(session_.window().windowTitle(), "Velmora Dealer Gauge 2");
  EXPECT_TRUE(session_.window().isVisible());
  EXPECT_EQ(session_.page().objectName(), "frmRecap");
  for (int index = 0; index < kRecapLabels; ++index) {
    const QString shown = text(elementName("lblRecap", index).c_str());
    EXPECT_EQ(shown.toStdString(), recapSheet().lblRecap(index).caption()) << index;
    EXPECT_FALSE(shown.trimmed().isEmpty()) << index;
  }
  EXPECT_EQ(text("Label2(2)"), "Sales & Profit");
  const auto& store = *session_.window().findChild<LabelWidget*>("lblStoreName");
  EXPECT_EQ(store.text().toStdString(), session_.form().lblStoreName.caption());
  QStringList panes;
  for (const QLabel* pane : session_.window().findChild<QWidget*>("sb1")->findChildren<QLabel*>())
    panes.append(pane->text());
  EXPECT_EQ(panes, (QStringList{"Client :PC7", "Host :SRV1", "Terminal :12",
                                "Source :LNK001      Store # 001"}));
  EXPECT_EQ(session_.presenter.splashWindow(), nullptr);
}

TEST_F(DesktopProgramTest, TreeAndMenusGoToViews) {
  session_.start();
  session_.clickNode("I1");
  EXPECT_EQ(session_.page().objectName(), "frmInv");
  session_.clickNode("A1");
  EXPECT_EQ(session_.page().objectName(), "frmInv") << "a heading opens nothing";

  session_.window().menus().item("mview", 12)->trigger();
  EXPECT_EQ(session_.page().objectName(), "frmSales");
  EXPECT_EQ(session_.window().tree().currentItem()->text(0), "Sales / Cash");
  session_.window().menus().item("mview", 14)->trigger();
  EXPECT_EQ(session_.page().objectName(), "frmSales") << "the recap's item has no effect";

  session_.window().tree().setFocus();
  QTest::keyClick(&session_.window().tree(), Qt::Key_Up);
  EXPECT_EQ(session_.page().objectName(), "frmProfit");
}

TEST_F(DesktopProgramTest, ADataErrorIsRedAndOpensTheLogByMouseAndKeyboard) {
  session_.start({"DARR.TRVN", "PARTDB"});
  auto& inventory = session_.widget<LabelWidget>("lblRecap(1)");
  ASSERT_EQ(inventory.text(), "Data Error !");
  EXPECT_TRUE(inventory.isLink());
  const QColor color = inventory.palette().color(QPalette::WindowText);
  EXPECT_GT(color.red(), color.green() + 80);

  const auto readLog = [](QDialog& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "View Log File");
    const auto* log = dialog.findChild<QPlainTextEdit*>("rtb1");
    ASSERT_NE(log, nullptr);
    EXPECT_TRUE(log->toPlainText().contains("*Error in frmInv GetLineData routine "))
        << log->toPlainText().toStdString();
    QTest::keyClick(&dialog, Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
  };
  EXPECT_TRUE(withDialog([&] { QTest::mouseClick(&inventory, Qt::LeftButton); }, readLog));
  inventory.setFocus();
  EXPECT_TRUE(withDialog([&] { QTest::keyClick(&inventory, Qt::Key_Return); }, readLog));

  auto& units = session_.widget<LabelWidget>("lblRecap(12)");
  if (!units.isLink()) {
    EXPECT_FALSE(withDialog([&] { QTest::mouseClick(&units, Qt::LeftButton); }, [](QDialog&) {}));
  }
}

TEST_F(DesktopProgramTest, RefreshShowsTheSplashAndCannotStartTwice) {
  session_.start();
  session_.clickNode("I1");
  int loads = 0;
  bool splashSeen = false;
  const Connection watch = splash().lblProgress.refreshed.connect([&] {
    splashSeen = splashSeen || (session_.presenter.splashWindow() != nullptr &&
                                session_.presenter.splashWindow()->isVisible());
    if (++loads != 3) return;
    // Keys and clicks into the middle of the refresh.
    QTest::keyClick(&session_.window(), Qt::Key_F5);
    session_.clickNode("L1");
    session_.window().menus().item("mfile", 0)->trigger();
    session_.window().close();
  });
  QTest::keyClick(&session_.window(), Qt::Key_F5);
  EXPECT_TRUE(splashSeen);
  EXPECT_TRUE(session_.window().isVisible()) << "it closes when the load has ended";
  EXPECT_EQ(session_.page().objectName(), "frmRecap");
  EXPECT_EQ(session_.window().tree().currentItem()->text(0), "Parts") << "the highlight stays";
  EXPECT_EQ(text("lblRecap(13)"), "") << "a refresh leaves the profit block empty";
  EXPECT_NE(text("lblRecap(1)"), "");
  EXPECT_EQ(session_.presenter.splashWindow(), nullptr);
  EXPECT_EQ(loads, 12) << "each view once, without the profit's";
}

TEST_F(DesktopProgramTest, AKeyPutsTheSplashAwayAndTheLoadGoesOn) {
  session_.start();
  int loads = 0;
  const Connection watch = splash().lblProgress.refreshed.connect([&] {
    if (++loads == 2) QTest::keyClick(session_.presenter.splashWindow(), Qt::Key_Space);
    if (loads > 2) {
      EXPECT_EQ(session_.presenter.splashWindow(), nullptr);
    }
  });
  session_.window().menus().item("mfile", 0)->trigger();
  EXPECT_GT(loads, 10);
  EXPECT_EQ(session_.page().objectName(), "frmRecap");
}

TEST_F(DesktopProgramTest, RowsOpenDetailsThatEscCloses) {
  session_.start();
  session_.clickNode("L1");
  auto& orders = session_.widget<GridPanel>("grdPO").view();
  ASSERT_GT(orders.model()->rowCount(), 0);
  const int amounts = orders.grid().columnIndex("Total");
  const auto& total = session_.widget<LabelWidget>("lblPoTotal");
  const auto distance = [&] {
    const int edge = orders.columnViewportPosition(amounts) + orders.columnWidth(amounts);
    return std::abs(total.mapToGlobal(QPoint(total.width(), 0)).x() -
                    orders.viewport()->mapToGlobal(QPoint(edge, 0)).x());
  };
  // Wide enough for all columns, whatever the fonts: else the total stays within the table.
  session_.window().resize(1800, 900);
  EXPECT_TRUE(QTest::qWaitFor([&] { return distance() <= 10; }))
      << "the total ends where the figures end that it sums, not " << distance() << " beside it";
  const QString number = orders.model()->index(0, 0).data().toString();
  EXPECT_TRUE(withDialog([&] { clickCell(orders, 0, 2); },
                         [&](QDialog& dialog) {
                           EXPECT_TRUE(dialog.windowTitle().contains(number));
                           auto* lines = dialog.findChild<GridView*>();
                           ASSERT_NE(lines, nullptr);
                           EXPECT_GT(lines->model()->rowCount(), 0);
                           auto* filter = dialog.findChild<QLineEdit*>();
                           QTest::keyClick(lines, Qt::Key_F, Qt::ControlModifier);
                           EXPECT_TRUE(filter->hasFocus());
                           QTest::keyClicks(filter, "x");
                           QTest::keyClick(filter, Qt::Key_Escape);
                           EXPECT_TRUE(dialog.isVisible()) << "the first Esc empties the filter";
                           QTest::keyClick(&dialog, Qt::Key_Escape);
                           EXPECT_FALSE(dialog.isVisible());
                         }));
  EXPECT_TRUE(withDialog(
      [&] { QTest::mouseClick(&session_.widget<QPushButton>("cmdVtot"), Qt::LeftButton); },
      [](QDialog& dialog) { EXPECT_EQ(dialog.findChildren<GridView*>().size(), 1); }));
}

TEST_F(DesktopProgramTest, AccountsAreChosenWithButtonsAndSaved) {
  session_.start();
  session_.clickNode("A5");
  auto& choose = session_.widget<QPushButton>("cmdCashSetup");
  const auto click = [](QDialog& dialog, const char* button) {
    QTest::mouseClick(dialog.findChild<QPushButton*>(button), Qt::LeftButton);
  };
  const int before = session_.widget<GridPanel>("grdGLCash").view().model()->rowCount();
  EXPECT_TRUE(withDialog([&] { QTest::mouseClick(&choose, Qt::LeftButton); },
                         [&](QDialog& dialog) {
                           click(dialog, "cmdMove(1)");
                           QTest::keyClick(&dialog, Qt::Key_Escape);
                           EXPECT_FALSE(dialog.isVisible());
                         }));
  QApplication::processEvents();
  EXPECT_EQ(session_.widget<GridPanel>("grdGLCash").view().model()->rowCount(), before)
      << "Esc is Cancel";

  int chart = 0;
  EXPECT_TRUE(withDialog([&] { QTest::mouseClick(&choose, Qt::LeftButton); },
                         [&](QDialog& dialog) {
                           auto& left = dialog.findChild<GridPanel*>("grdA(0)")->view();
                           chart = left.model()->rowCount();
                           clickCell(left, 0, 0);
                           click(dialog, "cmdMove(0)");
                           QApplication::processEvents();
                           EXPECT_EQ(left.model()->rowCount(), chart - 1);
                           click(dialog, "cmdDone");
                           EXPECT_FALSE(dialog.isVisible());
                         }));
  QApplication::processEvents();
  EXPECT_GT(chart, 1);
  EXPECT_EQ(session_.widget<GridPanel>("grdGLCash").view().model()->rowCount(), 1);
}

TEST_F(DesktopProgramTest, HelpOpensAtThePageOfTheView) {
  session_.start();
  const auto page = [this] {
    QTest::keyClick(&session_.window(), Qt::Key_F1);
    const HelpWindow& help = *session_.window().help();
    QString shown = help.browser().source().fileName();
    EXPECT_EQ(help.findChild<QListWidget*>()->currentItem()->data(Qt::UserRole).toString() + ".md",
              shown);
    return shown;
  };
  EXPECT_EQ(page(), "recap.md");
  session_.clickNode("A2");
  EXPECT_EQ(page(), "open-shop-work.md");
  session_.window().menus().item(kChartsPage)->trigger();
  EXPECT_EQ(page(), "charts.md");
  for (const TreeEntry& entry : treeEntries()) {
    if (entry.view.empty()) continue;
    session_.window().help()->showPage(entry.view);
    EXPECT_GT(session_.window().help()->browser().toPlainText().size(), 200) << entry.view;
  }
}

TEST_F(DesktopProgramTest, LinksOfTheGuideLeadToPages) {
  session_.start();
  HelpWindow help;
  for (const TreeEntry& entry : treeEntries()) {
    help.showPage(entry.view);
    const QTextDocument& document = *help.browser().document();
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
      for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
        const QString target = piece.fragment().charFormat().anchorHref();
        if (target.isEmpty()) continue;
        EXPECT_TRUE(QFile::exists(":/guide/" + target)) << target.toStdString();
      }
    }
  }
}

TEST_F(DesktopProgramTest, MessageBoxesShowTheirTextsAsTheyAre) {
  session_.start();
  const auto show = [](const MessageBox& box, const char* title, QMessageBox::Icon icon) {
    EXPECT_TRUE(withDialog([&] { showMessageBox(box); },
                           [&](QDialog& dialog) {
                             auto& shown = dynamic_cast<QMessageBox&>(dialog);
                             EXPECT_EQ(shown.windowTitle(), title);
                             EXPECT_EQ(shown.icon(), icon);
                             EXPECT_EQ(shown.textFormat(), Qt::PlainText);
                             EXPECT_EQ(shown.text(), "<b>x</b>\nK\u00FChn");
                           }));
  };
  show({"Title", "<b>x</b>\r\nK\xFChn", kCritical}, "Title", QMessageBox::Critical);
  show({"", "<b>x</b>\nK\xFChn", kInformation}, "Dealer Gauge 2", QMessageBox::Information);
}

TEST_F(DesktopProgramTest, ClosingTheWindowLogsTheEndLast) {
  session_.start();
  EXPECT_TRUE(
      withDialog([this] { session_.window().menus().item("mhelp", 2)->trigger(); },
                 [](QDialog& dialog) { EXPECT_EQ(dialog.windowTitle(), "About Dealer Gauge 2"); }));
  session_.window().menus().item("mfile", 5)->trigger();
  EXPECT_FALSE(session_.window().isVisible());
  EXPECT_TRUE(session_.log().ends_with("  Program End \r\n")) << session_.log();
}

TEST_F(DesktopProgramTest, AnEndFromOutsideClosesWhatIsOpenFirst) {
  session_.start();
  session_.clickNode("L1");
  const auto closesWith = [this](const std::function<void()>& open) {
    return withDialog(open, [this](QDialog&) {
      endProgram(session_.presenter);
      EXPECT_TRUE(session_.window().isVisible()) << "code of its pages still runs";
    });
  };
  auto& orders = session_.widget<GridPanel>("grdPO").view();
  EXPECT_TRUE(closesWith([&] { clickCell(orders, 0, 2); }));
  EXPECT_TRUE(QTest::qWaitFor([this] { return !session_.window().isVisible(); }));
  EXPECT_TRUE(session_.log().ends_with("  Program End \r\n")) << session_.log();
}

TEST_F(DesktopProgramTest, ChartsShowWhatIsLoaded) {
  session_.start();
  session_.window().menus().item(kChartsPage)->trigger();
  ASSERT_EQ(session_.window().views().addedOnShow(), kChartsPage);
  auto& page = dynamic_cast<ChartsPage&>(session_.page());
  const auto charts = page.findChildren<BarChart*>();
  ASSERT_EQ(charts.size(), 3);
  const ChartData assets = assetChart(session_.form());
  ASSERT_GT(assets.bars.size(), 3);
  for (qsizetype bar = 1; bar < assets.bars.size(); ++bar)
    EXPECT_GE(assets.bars[bar - 1].values[0], assets.bars[bar].values[0]);

  const ChartData year = salesChart(session_.form(), ChartPeriod::kYear);
  const ChartData month = salesChart(session_.form(), ChartPeriod::kMonth);
  EXPECT_EQ(year.series.size(), 2);
  EXPECT_NE(year.bars.first().values, month.bars.first().values);

  const QString file = QString::fromStdString(session_.run.folder.file("charts.png"));
  ASSERT_TRUE(page.savePicture(file));
  const QImage picture(file);
  EXPECT_GT(picture.width(), page.width());
  EXPECT_FALSE(page.savePicture(file + "/none.png"));

  session_.clickNode("R");
  EXPECT_EQ(session_.page().objectName(), "frmRecap");
}

TEST(DesktopChartTest, MoneyInShort) {
  EXPECT_EQ(shortMoney(0), "$0");
  EXPECT_EQ(shortMoney(999), "$999");
  EXPECT_EQ(shortMoney(999.6), "$1k");
  EXPECT_EQ(shortMoney(-34'500), "-$34.5k");
  EXPECT_EQ(shortMoney(999'960), "$1M");
  EXPECT_EQ(shortMoney(2.5e9), "$2.5B");
  EXPECT_EQ(exactMoney(-1234567.4), "-$1,234,567.40");
}

/// Captions whose Alt key another one in the window has too.
QString sharedKeys(const QWidget& window, const QStringList& others) {
  QMap<QString, QStringList> byKey;
  QStringList captions = others;
  for (const QAbstractButton* button : window.findChildren<QAbstractButton*>())
    captions.append(button->text());
  for (const QString& caption : captions)
    byKey[QKeySequence::mnemonic(caption).toString()].append(caption);
  byKey.remove({});
  QString shared;
  for (const QStringList& same : byKey) {
    if (same.size() > 1) shared += same.join(", ") + "; ";
  }
  return shared;
}

TEST(DesktopKeysTest, AltKeysAreUniqueInEachWindow) {
  DesktopSession session;
  session.start();
  QStringList menus;
  for (const QAction* menu : session.window().menus().actions())
    menus.append(menu->text());
  for (const TreeEntry& node : treeEntries()) {
    session.clickNode(std::string(node.key));
    EXPECT_EQ(sharedKeys(session.page(), menus), "") << node.key;
  }
  ViewStack& views = session.window().views();
  for (const AddedItem& item : addedItems()) {
    if (item.makePage == nullptr) continue;
    views.open(item);
    EXPECT_EQ(views.addedOnShow(), item.name);
    EXPECT_EQ(sharedKeys(session.page(), menus), "") << item.name;
  }
  session.end();
}

}  // namespace
}  // namespace dg
