#include "desktop/window/help_window.h"

#include <QAction>
#include <QCloseEvent>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QListWidget>
#include <QScopedValueRollback>
#include <QShortcut>
#include <QSplitter>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextTable>
#include <QToolBar>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "desktop/window/theme.h"
#include "desktop/window/user_settings.h"
#include "shell/view_orders.h"

namespace dg {

namespace {

constexpr QSize kSize{940, 680};

/// The guide's pages in their order, and the page of the window, if any, that each is about. Those
/// of the views stand in the list of views.
struct HelpPage {
  const char* file;
  const char* title;
  std::string_view about;
};
constexpr HelpPage kPages[] = {
    {"index", QT_TRANSLATE_NOOP("HelpWindow", "Contents"), ""},
    {"getting-around", QT_TRANSLATE_NOOP("HelpWindow", "Getting around"), ""},
    {"recap", QT_TRANSLATE_NOOP("HelpWindow", "Recap"), ""},
    {"today", QT_TRANSLATE_NOOP("HelpWindow", "Today"), "today"},
    {"charts", QT_TRANSLATE_NOOP("HelpWindow", "Charts"), "charts"},
    {"history", QT_TRANSLATE_NOOP("HelpWindow", "History"), "history"},
    {"morning-report", QT_TRANSLATE_NOOP("HelpWindow", "Morning report"), "morningReport"},
    {"stores", QT_TRANSLATE_NOOP("HelpWindow", "Stores"), "stores"},
    {"accounts-receivable", QT_TRANSLATE_NOOP("HelpWindow", "Accounts Receivable"), ""},
    {"billed-warranties", QT_TRANSLATE_NOOP("HelpWindow", "Billed Warranties"), ""},
    {"ledger-assets", QT_TRANSLATE_NOOP("HelpWindow", "G/L Assets"), ""},
    {"parts-inventory", QT_TRANSLATE_NOOP("HelpWindow", "Parts Inventory"), ""},
    {"floor-plan", QT_TRANSLATE_NOOP("HelpWindow", "Floor Plan"), ""},
    {"units", QT_TRANSLATE_NOOP("HelpWindow", "Units"), ""},
    {"open-sales-orders", QT_TRANSLATE_NOOP("HelpWindow", "Open Sales Orders"), ""},
    {"open-shop-work", QT_TRANSLATE_NOOP("HelpWindow", "Open Shop Work"), ""},
    {"returns", QT_TRANSLATE_NOOP("HelpWindow", "Returns"), ""},
    {"ledger-liabilities", QT_TRANSLATE_NOOP("HelpWindow", "G/L Liabilities"), ""},
    {"purchase-orders", QT_TRANSLATE_NOOP("HelpWindow", "Purchase Orders"), ""},
    {"profit", QT_TRANSLATE_NOOP("HelpWindow", "Profit"), ""},
    {"sales-and-cash", QT_TRANSLATE_NOOP("HelpWindow", "Sales / Cash"), ""},
    {"data-errors", QT_TRANSLATE_NOOP("HelpWindow", "Data errors and the log"), "frmViewLog"},
};
static_assert(std::ranges::all_of(kViews, [](const ListedView& view) {
  return std::ranges::any_of(kPages,
                             [&](const HelpPage& page) { return view.guidePage == page.file; });
}));

/// Forms that are told on the page of another.
constexpr std::pair<std::string_view, std::string_view> kToldWith[] = {
    {"frmWarrDetail", "frmWarranty"},
    {"frmShopDetail", "frmShop"},
    {"frmPTSDetail", "frmOpenSales"},
    {"frmPODetail", "frmPo"},
    {"frmVtotal", "frmPo"},
    {"frmFpdtl", "frmFp"},
    {"frmFpx", "frmFp"},
    {"frmUnitDtl", "frmUnits"},
    {"frmUnitInfo", "frmUnits"},
    {"frmSetup", "frmGLA"},
};

QUrl urlOf(const QString& page) {
  return QUrl(QStringLiteral("qrc:/guide/%1.md").arg(page));
}

/// Gives a page's tables and paragraphs room; Markdown brings none of its own.
void layOut(QTextDocument& document, const QPalette& palette) {
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
    QTextCursor cursor(block);
    QTextBlockFormat format = block.blockFormat();
    format.setLineHeight(120, QTextBlockFormat::ProportionalHeight);
    if (cursor.currentTable() == nullptr && format.headingLevel() > 1) format.setTopMargin(18);
    cursor.setBlockFormat(format);
    QTextTable* table = cursor.currentTable();
    if (table == nullptr) continue;
    QTextTableFormat look = table->format();
    look.setCellPadding(5);
    look.setCellSpacing(0);
    look.setBorder(1);
    look.setBorderCollapse(true);
    look.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
    look.setBorderBrush(lineColor(palette));
    look.setTopMargin(10);
    look.setBottomMargin(10);
    table->setFormat(look);
  }
}

}  // namespace

QString helpPageOf(std::string_view view) {
  for (const auto& [form, teller] : kToldWith) {
    if (view == form) view = teller;
  }
  for (const ListedView& listed : kViews) {
    if (listed.form == view) return QString::fromLatin1(listed.guidePage);
  }
  for (const HelpPage& page : kPages) {
    if (!page.about.empty() && page.about == view) return QString::fromLatin1(page.file);
  }
  return QString::fromLatin1(kPages[0].file);
}

void addHelpKey(QWidget& window, std::string_view view) {
  auto* key = new QShortcut(QKeySequence::HelpContents, &window);
  QObject::connect(key, &QShortcut::activated, &window, [&window, name = std::string(view)] {
    auto* help = window.findChild<HelpWindow*>();
    if (help == nullptr) help = new HelpWindow(&window);
    help->showPage(name);
  });
}

HelpWindow::HelpWindow(QWidget* parent)
    : QWidget(parent, Qt::Window), pages_(new QListWidget(this)), browser_(new QTextBrowser(this)) {
  setWindowTitle(tr("Dealer Gauge Help"));
  // The program ends with its main window, whether the guide is open or not.
  setAttribute(Qt::WA_QuitOnClose, false);
  for (const HelpPage& page : kPages) {
    auto* item = new QListWidgetItem(tr(page.title), pages_);
    item->setData(Qt::UserRole, QString::fromLatin1(page.file));
  }
  pages_->setAccessibleName(tr("Pages"));
  pages_->setFrameShape(QFrame::NoFrame);
  pages_->setSpacing(3);
  browser_->setAccessibleName(tr("Page"));
  browser_->setFrameShape(QFrame::NoFrame);
  browser_->setOpenExternalLinks(true);
  browser_->document()->setDocumentMargin(18);

  auto* splitter = new QSplitter(this);
  splitter->addWidget(pages_);
  splitter->addWidget(browser_);
  splitter->setStretchFactor(1, 1);
  splitter->setSizes({210, 730});
  splitter->setChildrenCollapsible(false);
  splitter->setHandleWidth(1);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins({});
  layout->setSpacing(0);
  layout->addWidget(buildTools());
  layout->addWidget(splitter, 1);

  connect(pages_, &QListWidget::currentItemChanged, this, [this](const QListWidgetItem* item) {
    // While a page is being set, the browser still names the one before.
    if (item != nullptr && !marking_) open(item->data(Qt::UserRole).toString());
  });
  connect(browser_, &QTextBrowser::sourceChanged, this, &HelpWindow::markPage);
  UserSettings::restoreWindow(*this, QStringLiteral("help"), kSize);
}

QWidget* HelpWindow::buildTools() {
  auto* tools = new QToolBar(this);
  tools->setToolButtonStyle(Qt::ToolButtonTextOnly);
  QAction* back = tools->addAction(tr("&Back"), browser_, &QTextBrowser::backward);
  back->setShortcut(QKeySequence::Back);
  back->setEnabled(false);
  connect(browser_, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
  QAction* forward = tools->addAction(tr("&Forward"), browser_, &QTextBrowser::forward);
  forward->setShortcut(QKeySequence::Forward);
  forward->setEnabled(false);
  connect(browser_, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);
  tools->addAction(tr("&Contents"), this, [this] { open(QString::fromLatin1(kPages[0].file)); });
  auto* close = new QAction(tr("Close"), this);
  close->setShortcut(Qt::Key_Escape);
  connect(close, &QAction::triggered, this, &QWidget::close);
  addAction(close);
  return tools;
}

void HelpWindow::open(const QString& page) {
  const QUrl url = urlOf(page);
  if (browser_->source().adjusted(QUrl::RemoveFragment) != url) browser_->setSource(url);
}

void HelpWindow::markPage(const QUrl& url) {
  layOut(*browser_->document(), palette());
  const QString page = QFileInfo(url.path()).completeBaseName();
  const QScopedValueRollback<bool> marking(marking_, true);
  for (int row = 0; row < pages_->count(); ++row) {
    if (pages_->item(row)->data(Qt::UserRole).toString() == page) pages_->setCurrentRow(row);
  }
}

void HelpWindow::showPage(std::string_view view) {
  open(helpPageOf(view));
  show();
  raise();
  activateWindow();
  browser_->setFocus();
}

void HelpWindow::closeEvent(QCloseEvent* event) {
  UserSettings::saveWindow(*this, QStringLiteral("help"));
  QWidget::closeEvent(event);
}

}  // namespace dg
