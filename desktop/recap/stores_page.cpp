#include "desktop/recap/stores_page.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QProcess>
#include <QProgressBar>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QToolButton>
#include <QVBoxLayout>
#include <utility>

#include "desktop/grid/grid_panel.h"
#include "desktop/window/text.h"
#include "history/figure_history.h"
#include "platform/environment.h"
#include "shell/main.h"
#include "shell/recap_figures.h"

namespace dg {

namespace {

constexpr int kFirstFigure = 2;  // behind directory and name
constexpr int kDone = 1;         // the highest exit status that comes with an answer

/// What dgtool is told, so that it sees the files that this program sees.
QStringList arguments() {
  QStringList list{QStringLiteral("recap"),      QStringLiteral("--stores"),
                   QStringLiteral("all"),        QStringLiteral("--json"),
                   QStringLiteral("--progress"), QStringLiteral("--no-log")};
  const Environment& place = environment();
  const auto add = [&list](const char* option, const std::string& value) {
    if (value.empty()) return;
    list.append(QString::fromLatin1(option));
    list.append(QString::fromLocal8Bit(value.data(), static_cast<qsizetype>(value.size())));
  };
  add("--temp", place.temp);
  add("--share-root", place.shareRoot);
  add("--computer", place.computerName);
  add("--settings", place.settingsFile);
  return list;
}

std::vector<ColumnSpec> columns() {
  std::vector<ColumnSpec> specs{{.name = "Store"}, {.name = "Name"}};
  for (const RecapFigure& figure : recapFigures()) {
    specs.push_back(
        {.name = figure.name,
         .kind = figure.kind == FigureKind::kRate ? ColumnKind::kPercent : ColumnKind::kMoney});
  }
  return specs;
}

}  // namespace

StoresPage::StoresPage(QString tool, QWidget* parent)
    : AddedPage(tr("Stores"), parent),
      tool_(std::move(tool)),
      note_(new QLabel(this)),
      progress_(new QProgressBar(this)) {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(20, 16, 20, 20);
  layout->setSpacing(12);
  layout->addWidget(buildHead());
  note_->setTextFormat(Qt::PlainText);
  note_->setWordWrap(true);
  layout->addWidget(note_);
  progress_->setAccessibleName(tr("Stores read"));
  progress_->hide();
  layout->addWidget(progress_);
  tableSpace_ = new QVBoxLayout;
  layout->addLayout(tableSpace_, 1);
  layout->addStretch(0);
}

StoresPage::~StoresPage() {
  endProcess();
  delete table_;  // before the grid that it shows
}

QWidget* StoresPage::buildHead() {
  auto* head = new QWidget(this);
  auto* layout = new QHBoxLayout(head);
  layout->setContentsMargins({});
  layout->addWidget(titleLabel(head), 1);
  reload_ = headButton(tr("R&ead Again"), head);
  connect(reload_, &QToolButton::clicked, this, &StoresPage::load);
  layout->addWidget(reload_);
  cancel_ = headButton(tr("&Cancel"), head);
  cancel_->hide();
  connect(cancel_, &QToolButton::clicked, this, &StoresPage::cancel);
  layout->addWidget(cancel_);
  layout->addWidget(recapButton(head));
  return head;
}

QString StoresPage::findTool() {
#ifdef Q_OS_WIN
  const QString name = QStringLiteral("dgtool.exe");
#else
  const QString name = QStringLiteral("dgtool");
#endif
  const QString here = QCoreApplication::applicationDirPath();
  for (const QString& file : {here + u'/' + name, here + QStringLiteral("/../tools/") + name}) {
    if (QFileInfo(file).isExecutable()) return QFileInfo(file).canonicalFilePath();
  }
  return QStandardPaths::findExecutable(name);
}

void StoresPage::opened() {
  if (table_ == nullptr) load();
}

void StoresPage::load() {
  if (isLoading()) return;
  if (tool_.isEmpty()) return tell(tr("dgtool, which reads the other stores, is not installed."));
  told_.clear();
  tell(tr("Reading the stores of this server. You can go on working meanwhile."));
  progress_->setRange(0, 0);
  progress_->show();
  cancel_->show();
  reload_->setEnabled(false);
  process_ = new QProcess(this);
  connect(process_, &QProcess::readyReadStandardError, this, &StoresPage::readProgress);
  connect(process_, &QProcess::finished, this, &StoresPage::processEnded);
  connect(process_, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
    if (error != QProcess::FailedToStart) return;
    endProcess();
    tell(tr("dgtool, which reads the other stores, cannot be started."));
    Q_EMIT loadEnded();
  });
  process_->start(tool_, arguments(), QIODevice::ReadOnly);
}

void StoresPage::cancel() {
  if (!isLoading()) return;
  endProcess();
  tell(tr("Cancelled. Nothing was changed."));
  Q_EMIT loadEnded();
}

void StoresPage::endProcess() {
  progress_->hide();
  cancel_->hide();
  reload_->setEnabled(true);
  QProcess* ending = std::exchange(process_, nullptr);
  if (ending == nullptr) return;
  ending->disconnect(this);
  if (ending->state() != QProcess::NotRunning) {
    ending->kill();
    constexpr int kEndPatience = 2000;
    ending->waitForFinished(kEndPatience);
  }
  ending->deleteLater();
}

void StoresPage::tell(const QString& text) {
  note_->setText(text);
}

/// Lines such as "2/5 LNK002" tell which store is begun; what else is said is kept.
void StoresPage::readProgress() {
  static const QRegularExpression progress(QStringLiteral("^(\\d+)/(\\d+) (.*)$"));
  process_->setReadChannel(QProcess::StandardError);
  while (process_->canReadLine()) {
    const QByteArray line = process_->readLine().trimmed();
    const auto found = progress.match(QString::fromUtf8(line));
    if (!found.hasMatch()) {
      told_ = line;
      continue;
    }
    progress_->setRange(0, found.captured(2).toInt());
    progress_->setValue(found.captured(1).toInt() - 1);
    tell(tr("Reading %1, store %2 of %3. You can go on working meanwhile.")
             .arg(found.captured(3), found.captured(1), found.captured(2)));
  }
}

void StoresPage::processEnded(int status) {
  readProgress();
  process_->setReadChannel(QProcess::StandardOutput);
  const bool ended = process_->exitStatus() == QProcess::NormalExit && status <= kDone;
  const QJsonDocument answer = QJsonDocument::fromJson(process_->readAllStandardOutput());
  endProcess();
  if (ended && answer.isObject()) {
    showStores(answer.object());
  } else {
    tell(tr("The stores could not be read. %1").arg(QString::fromUtf8(told_)));
  }
  Q_EMIT loadEnded();
}

void StoresPage::showStores(const QJsonObject& document) {
  delete std::exchange(table_, nullptr);
  grid_ = std::make_unique<Grid>("grdStores", columns());
  grid_->setRedraw(false);
  int read = 0;
  const QJsonArray stores = document[QStringLiteral("stores")].toArray();
  for (const auto& value : stores) {
    const QJsonObject store = value.toObject();
    const QString error = store[QStringLiteral("error")].toString();
    grid_->AddNew();
    grid_->set(0, toBytes(store[QStringLiteral("directory")].toString()));
    grid_->set(1, toBytes(error.isEmpty() ? store[QStringLiteral("name")].toString()
                                          : tr("not read: %1").arg(error)));
    if (!error.isEmpty()) continue;
    ++read;
    const QJsonArray recap = store[QStringLiteral("recap")].toArray();
    int column = kFirstFigure;
    for (const RecapFigure& figure : recapFigures()) {
      const QJsonObject shown = recap[figure.index()].toObject();
      grid_->set(column++, toBytes(shown[QStringLiteral("caption")].toString()));
    }
  }
  grid_->AddNew();
  grid_->set(0, std::string("Total"));
  grid_->set(1, toBytes(tr("%1 of %2 stores").arg(read).arg(stores.size())));
  const QJsonArray total = document[QStringLiteral("total")].toArray();
  int column = kFirstFigure;
  for (const RecapFigure& figure : recapFigures()) {
    const QJsonValue amount = total[figure.index()].toObject()[QStringLiteral("amount")];
    if (amount.isString()) {
      grid_->set(column,
                 amountText(Currency::fromDouble(amount.toString().toDouble()), figure.kind));
    }
    ++column;
  }
  const int last = grid_->Rows() - 1;
  grid_->rowOpens = [last](int row) { return row < last; };
  grid_->onRowClick = [this, last](int row) {
    if (row < last) Q_EMIT storeRequested(cellText(grid_->CellValue(0, row)));
  };
  grid_->MoveFirst();
  grid_->setRedraw(true);
  table_ = new GridPanel(*grid_, tableForm_);
  tableSpace_->addWidget(table_);
  tell(tr("The totals cover %1 of %2 stores. A click on a store opens it in a window of its own.")
           .arg(read)
           .arg(stores.size()));
}

bool openStoreWindow(const QString& directory) {
  QProcess program;
  program.setProgram(QCoreApplication::applicationFilePath());
  program.setArguments({QString::fromLatin1(kLaunchToken)});
  QProcessEnvironment place = QProcessEnvironment::systemEnvironment();
  place.insert(QStringLiteral("DG_DIRECTORY"), directory);
  program.setProcessEnvironment(place);
  return program.startDetached();
}

}  // namespace dg
