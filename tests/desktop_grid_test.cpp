#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QHeaderView>
#include <QLineEdit>
#include <QTest>
#include <gtest/gtest.h>
#include <memory>

#include "desktop/grid/grid_actions.h"
#include "desktop/grid/grid_export.h"
#include "desktop/grid/grid_model.h"
#include "desktop/grid/grid_panel.h"
#include "desktop/grid/grid_sums.h"
#include "desktop/grid/grid_view.h"
#include "desktop/grid/group_header.h"
#include "desktop/window/user_settings.h"
#include "shell/sort_grid.h"
#include "tests/desktop_session.h"
#include "tests/support/zip_reader.h"

namespace dg {
namespace {

constexpr ColumnSpec kColumns[] = {
    {.name = "Line", .kind = ColumnKind::kNumber, .group = "Product Group"},
    {.name = "Name"},
    {.name = "Total", .kind = ColumnKind::kMoney, .mask = "$#,##0.00", .group = "Sales"},
    {.name = "Date", .kind = ColumnKind::kDate},
    {.name = "ndate", .hidden = true, .keyOf = "Date"},
};
constexpr HeadSort kSorts[] = {{"Line"}, {"Name", true}, {"Total"}, {"ndate"}};

/// A grid on a panel of its own, in a window.
class DesktopGridTest : public testing::Test {
 protected:
  void SetUp() override {
    addRow(3, "Smith & Sons", 1234.5, "1/5/26", 10);
    addRow(1, "<b>Bold</b> Motors", -20, "2/1/26", 30);
    addRow(2, "Zeta", 7, "1/9/26", 20);
    grid_.MoveFirst();
    grid_.onHeadClick = [this](int column) { sortByHead(grid_, column, kSorts); };
    grid_.onRowClick = [this](int row) { opened_.push_back(row); };
    makePanel();
  }

  void addRow(int line, const std::string& name, double total, const std::string& date, int key) {
    grid_.AddNew();
    grid_.set("Line", line);
    grid_.set("Name", name);
    grid_.set("Total", total);
    grid_.set("Date", date);
    grid_.set("ndate", key);
  }

  void makePanel() {
    panel_ = std::make_unique<GridPanel>(grid_, form_);
    panel_->resize(700, 400);
    panel_->show();
    QApplication::setActiveWindow(panel_.get());
    QApplication::processEvents();
  }

  GridView& view() const { return panel_->view(); }
  QString cell(int row, int column) const {
    return view().model()->index(row, column).data().toString();
  }
  QStringList names() const {
    QStringList found;
    for (int row = 0; row < view().model()->rowCount(); ++row)
      found.append(cell(row, 1));
    return found;
  }

  DesktopSession session_;  // the user's settings go into its folder
  Grid grid_{"grdTest", kColumns};
  std::vector<int> opened_;
  Form form_{"frmTest", "Test Lines"};
  std::unique_ptr<GridPanel> panel_;
};

TEST_F(DesktopGridTest, ShowsWhatStandsInTheGrid) {
  EXPECT_EQ(cell(0, 2), "$1,234.50");
  EXPECT_EQ(cell(1, 1), "<b>Bold</b> Motors") << "a name is no mark-up";
  EXPECT_TRUE(view().isColumnHidden(4));
  EXPECT_EQ(view().model()->headerData(3, Qt::Horizontal).toString(), "Date");
  const auto alignment = [this](int column) {
    return view().model()->index(0, column).data(Qt::TextAlignmentRole).toInt() &
           Qt::AlignHorizontal_Mask;
  };
  EXPECT_EQ(alignment(0), Qt::AlignRight);
  EXPECT_EQ(alignment(1), Qt::AlignLeft);

  grid_.AddNew();
  grid_.set("Name", std::string("Later"));
  EXPECT_EQ(view().model()->rowCount(), 3) << "the table follows when it is idle";
  QApplication::processEvents();
  ASSERT_EQ(view().model()->rowCount(), 4);
  EXPECT_EQ(cell(3, 1), "Later");
}

TEST_F(DesktopGridTest, ACellThatIsGoneReadsAsEmpty) {
  grid_.RemoveAll();
  EXPECT_EQ(cell(2, 1), "");
  grid_.Refresh();
  EXPECT_EQ(view().model()->rowCount(), 0) << "a refresh does not wait";
}

TEST_F(DesktopGridTest, AHeadClickSortsAndTheArrowTellsTheTruth) {
  gSortDirection = 0;
  const QHeaderView& header = *view().horizontalHeader();
  EXPECT_FALSE(header.isSortIndicatorShown());
  clickHead(view(), 0);
  EXPECT_EQ(cell(0, 0), "3");
  EXPECT_TRUE(header.isSortIndicatorShown());
  EXPECT_EQ(header.sortIndicatorSection(), 0);
  EXPECT_EQ(header.sortIndicatorOrder(), Qt::DescendingOrder);
  clickHead(view(), 0);
  EXPECT_EQ(cell(0, 0), "1");
  EXPECT_EQ(header.sortIndicatorOrder(), Qt::AscendingOrder);

  // Dates sort by a hidden key; the arrow stands over the dates.
  clickHead(view(), 3);
  EXPECT_EQ(cell(0, 3), "2/1/26");
  EXPECT_EQ(header.sortIndicatorSection(), 3);
  EXPECT_EQ(header.sortIndicatorOrder(), Qt::DescendingOrder);
  EXPECT_EQ(view().currentIndex().row(), 0);

  // A sort that fails leaves the arrow where it was, also while its message shows.
  int failures = 0;
  setMessageBoxHandler([&](const MessageBox&) {
    ++failures;
    EXPECT_EQ(header.sortIndicatorSection(), 3);
    EXPECT_EQ(header.sortIndicatorOrder(), Qt::DescendingOrder);
  });
  grid_.onHeadClick = [](int) { throw RunTimeError(kTypeMismatch); };
  clickHead(view(), 0);
  clickHead(view(), 3);
  setMessageBoxHandler({});
  EXPECT_EQ(failures, 2);
  EXPECT_EQ(header.sortIndicatorSection(), 3);
  EXPECT_EQ(header.sortIndicatorOrder(), Qt::DescendingOrder);

  // New rows stand in no order.
  addRow(9, "New", 1, "", 1);
  QApplication::processEvents();
  EXPECT_FALSE(header.isSortIndicatorShown());
}

TEST_F(DesktopGridTest, AClickOpensARowAndADragDoesNot) {
  clickCell(view(), 1, 2);
  EXPECT_EQ(opened_, std::vector{1});
  QTest::keyClick(&view(), Qt::Key_Down);
  QTest::keyClick(&view(), Qt::Key_Return);
  EXPECT_EQ(opened_, (std::vector{1, 2}));
  EXPECT_EQ(grid_.Bookmark(), 2);

  clickCell(view(), 0, 0, Qt::ControlModifier);
  const QRect from = view().visualRect(view().model()->index(0, 0));
  const QRect to = view().visualRect(view().model()->index(1, 1));
  QTest::mousePress(view().viewport(), Qt::LeftButton, {}, from.center());
  QTest::mouseMove(view().viewport(), to.center());
  QTest::mouseRelease(view().viewport(), Qt::LeftButton, {}, to.center());
  EXPECT_EQ(opened_.size(), 2U);
}

TEST_F(DesktopGridTest, OnlyTheButtonOfAButtonColumnOpens) {
  constexpr ColumnSpec kButtons[] = {{.name = "Job", .button = true}, {.name = "Name"}};
  Grid grid("grdJobs", kButtons);
  grid.AddItem("12\tSmith");
  int clicks = 0;
  grid.onRowClick = [&](int) { ++clicks; };
  const Form form("frmTest", "Jobs");
  GridPanel panel(grid, form);
  panel.resize(400, 200);
  panel.show();
  clickCell(panel.view(), 0, 1);
  EXPECT_EQ(clicks, 0);
  clickCell(panel.view(), 0, 0);
  EXPECT_EQ(clicks, 1);
  QTest::keyClick(&panel.view(), Qt::Key_Enter);
  EXPECT_EQ(clicks, 2);
}

TEST_F(DesktopGridTest, SelectedCellsAndFilteredRowsAreSummed) {
  view().selectAll();
  EXPECT_EQ(selectionSummary(view()), "Sum $1,227.50   Average $204.58   Count 6");
  EXPECT_EQ(shownSums(view()), "Sales Total $1,221.50");
  QTest::keyClicks(&panel_->filterBox(), "motors bold");
  EXPECT_EQ(shownSums(view()), "Sales Total -$20.00");
}

TEST_F(DesktopGridTest, AFilteredListMovesWhatItShowsInTheOrderOfSelection) {
  grid_.multiSelect = true;
  panel_.reset();
  makePanel();
  for (const int row : {2, 0})
    view().selectionModel()->select(view().model()->index(row, 0),
                                    QItemSelectionModel::Select | QItemSelectionModel::Rows);
  EXPECT_EQ(grid_.SelBookmarks, (std::vector<int>{2, 0}));
  QTest::keyClicks(&panel_->filterBox(), "zeta");
  EXPECT_EQ(grid_.rowsOnShow(), std::vector<int>{2});
  panel_.reset();
  EXPECT_EQ(grid_.rowsOnShow().size(), 3U);
}

TEST_F(DesktopGridTest, TheFilterHidesRowsAndOpensTheRightOnes) {
  QTest::keyClicks(&panel_->filterBox(), "motors bold");
  EXPECT_EQ(names(), QStringList("<b>Bold</b> Motors"));
  EXPECT_EQ(grid_.Rows(), 3) << "totals count all rows";
  clickCell(view(), 0, 1);
  EXPECT_EQ(opened_, std::vector{1}) << "the grid's own row";

  clickHead(view(), 1);
  EXPECT_EQ(names(), QStringList("<b>Bold</b> Motors")) << "a sort keeps the filter";
  panel_->filterBox().setFocus();
  QTest::keyClick(&panel_->filterBox(), Qt::Key_Escape);
  EXPECT_EQ(names().size(), 3);
  EXPECT_TRUE(view().hasFocus());

  panel_->filterBox().setText("10");
  EXPECT_EQ(names().size(), 0) << "hidden columns are not searched";
}

TEST_F(DesktopGridTest, CopiesCellsWithAndWithoutHeadings) {
  view().setFocus();
  view().selectAll();
  QTest::keyClick(&view(), Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(QApplication::clipboard()->text(),
            "Product Group Line\tProduct Group Name\tSales Total\tSales Date\n"
            "3\tSmith & Sons\t$1,234.50\t1/5/26\n"
            "1\t<b>Bold</b> Motors\t-$20.00\t2/1/26\n"
            "2\tZeta\t$7.00\t1/9/26");
  view().clearSelection();
  view().selectionModel()->select(view().model()->index(0, 1), QItemSelectionModel::Select);
  view().selectionModel()->select(view().model()->index(2, 2), QItemSelectionModel::Select);
  QTest::keyClick(&view(), Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), "Smith & Sons\t\n\t$7.00");
}

TEST_F(DesktopGridTest, SelectedRowsReachAGridOfManySelections) {
  grid_.multiSelect = true;
  makePanel();
  clickCell(view(), 0, 0);
  clickCell(view(), 2, 1, Qt::ControlModifier);
  EXPECT_EQ(grid_.SelBookmarks, (std::vector{0, 2}));
  const auto seen = [this] { return view().selectionModel()->selectedRows().size(); };
  panel_->filterBox().setText("zeta");
  EXPECT_EQ(grid_.SelBookmarks, std::vector{2}) << "no row is selected unseen";
  EXPECT_EQ(seen(), 1);
  panel_->filterBox().clear();
  grid_.AddItem("4\tNew");
  view().synchronize();
  EXPECT_EQ(grid_.SelBookmarks, std::vector{2});
  EXPECT_EQ(seen(), 1) << "new rows leave the selection";
  panel_->filterBox().setText("zeta");
  clickCell(view(), 0, 0);
  EXPECT_EQ(grid_.SelBookmarks, std::vector{2});
}

TEST_F(DesktopGridTest, ColumnWidthsOfTheUserAreKept) {
  QHeaderView& header = *view().horizontalHeader();
  const int edge = header.sectionViewportPosition(1) + header.sectionSize(1);
  const int before = view().columnWidth(1);
  const int y = header.height() - 6;
  QTest::mousePress(header.viewport(), Qt::LeftButton, {}, QPoint(edge - 1, y));
  QTest::mouseMove(header.viewport(), QPoint(edge + 30, y));
  QTest::mouseRelease(header.viewport(), Qt::LeftButton, {}, QPoint(edge + 39, y));
  const int wider = view().columnWidth(1);
  ASSERT_GT(wider, before);
  makePanel();
  EXPECT_EQ(view().columnWidth(1), wider);
  EXPECT_TRUE(session_.run.folder.has("desktop.ini") ||
              !UserSettings::columnWidths("frmTest.grdTest").isEmpty());
  view().resetColumnWidths();
  EXPECT_EQ(view().columnWidth(1), before);
}

TEST_F(DesktopGridTest, ExportsTheRowsOnShow) {
  panel_->filterBox().setText("s");
  const QString csv = QString::fromStdString(session_.run.folder.file("lines.csv"));
  ASSERT_TRUE(panel_->actions().exportTo(csv));
  EXPECT_EQ(session_.run.folder.read("lines.csv"),
            "\xEF\xBB\xBFProduct Group Line,Product Group Name,Sales Total,Sales Date\r\n"
            "3,Smith & Sons,\"$1,234.50\",1/5/26\r\n"
            "1,<b>Bold</b> Motors,-$20.00,2/1/26\r\n");

  ASSERT_TRUE(
      panel_->actions().exportTo(QString::fromStdString(session_.run.folder.file("lines.xlsx"))));
  const std::string book = session_.run.folder.read("lines.xlsx");
  EXPECT_NE(zipMember(book, "xl/workbook.xml").find("Test Lines"), std::string::npos);
  const std::string sheet = zipMember(book, "xl/worksheets/sheet1.xml");
  EXPECT_NE(sheet.find("<v>1234.5</v>"), std::string::npos) << sheet;
  EXPECT_EQ(zipMember(book, "xl/sharedStrings.xml").find("Zeta"), std::string::npos);

  ASSERT_TRUE(
      panel_->actions().exportTo(QString::fromStdString(session_.run.folder.file("lines.pdf"))));
  EXPECT_EQ(session_.run.folder.read("lines.pdf").substr(0, 5), "%PDF-");

  for (const char* name : {"no/lines.csv", "no/lines.xlsx", "no/lines.pdf"}) {
    const QString file = QString::fromStdString(session_.run.folder.file(name));
    bool written = true;
    EXPECT_TRUE(withDialog([&] { written = panel_->actions().exportTo(file); }, [](QDialog&) {}))
        << name;
    EXPECT_FALSE(written) << name;
  }
}

TEST_F(DesktopGridTest, AHundredThousandRowsCostNoWidgets) {
  for (int row = 0; row < 100'000; ++row)
    grid_.AddItem(std::to_string(row) + "\tName\t1\t\t");
  view().synchronize();
  EXPECT_EQ(view().model()->rowCount(), 100'003);
  const auto children = view().findChildren<QWidget*>().size();
  view().scrollToBottom();
  QApplication::processEvents();
  EXPECT_EQ(view().findChildren<QWidget*>().size(), children);
  panel_->filterBox().setText("99999");
  EXPECT_EQ(view().model()->rowCount(), 1);
}

}  // namespace
}  // namespace dg
