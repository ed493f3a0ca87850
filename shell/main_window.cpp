#include "shell/main_window.h"

#include <algorithm>
#include <new>
#include <utility>

#include "engine/catalog_configuration.h"
#include "engine/state.h"
#include "platform/clock.h"
#include "platform/environment.h"
#include "platform/message_box.h"
#include "platform/read_ahead.h"
#include "platform/text.h"
#include "platform/unopened_files.h"
#include "records/control_file.h"
#include "records/file_names.h"
#include "records/open/open_work.h"
#include "shell/about.h"
#include "shell/options.h"
#include "shell/recap_sheet.h"
#include "shell/splash.h"
#include "shell/trap.h"
#include "shell/view_log.h"
#include "shell/view_orders.h"
#include "shell/write_log.h"

namespace dg {

bool WarrantySegments = false;

namespace {

constexpr std::string_view kRecap = "frmRecap";
constexpr std::string_view kShop = "frmShop";
constexpr std::string_view kWarranties = "frmWarranty";
constexpr std::string_view kWarrantySegments = "frmWarSeg";

/// Every view has the same place and size.
constexpr Bounds kViewBounds{.left = 110, .top = 110, .width = 10905, .height = 8445};

constexpr const char* kNoStoreName = "Error finding Store Name";

constexpr const char* kNoEngine = "Error... could not initialize cBusinessBasic. ";

/// Where the store number begins in the store directory's name.
constexpr std::size_t kStoreNumberPosition = 4;

constexpr Place kSheet[] = {
    {.control = "lblStoreName", .row = 0, .column = 0},
    {.control = "Label1", .row = 0, .column = 1},
    {.control = "tv1", .row = 1, .column = 0},
    {.control = "sb1", .row = 2, .columnSpan = 2},
};

std::string_view chosen(std::string_view name) {
  return name == kWarranties && WarrantySegments ? kWarrantySegments : name;
}

std::string dateAndTime() {
  const Date moment = now();
  return moment.shortDateText() + " " + moment.longTimeText();
}

const cSystem& systemInfo() {
  if (!SystemInfo) throw RunTimeError(kObjectNotSet);
  return *SystemInfo;
}

template <class Entry, class Match>
const Entry* findEntry(std::span<const Entry> entries, Match match) {
  const auto found = std::find_if(entries.begin(), entries.end(), match);
  return found == entries.end() ? nullptr : &*found;
}

/// Raises a flag while it lives.
class Raised {
 public:
  explicit Raised(bool& flag) : flag_(flag) { flag_ = true; }
  ~Raised() { flag_ = false; }
  Raised(const Raised&) = delete;
  Raised& operator=(const Raised&) = delete;

 private:
  bool& flag_;
};

}  // namespace

frmTRVN::frmTRVN(const ViewCatalogue& catalogue, std::vector<std::string> only)
    : Form("frmTRVN", "Velmora Dealer Gauge 2"),
      lblStoreName(add<Label>("lblStoreName", "", LabelRole::kTitle)),
      Label1(add<Label>("Label1", kProgramName, LabelRole::kNote)),
      tv1(add<TreeView>("tv1")),
      sb1(add<StatusBar>("sb1", std::size_t{4})),
      onViewLog(&showLogViewer),
      onAbout(&showAbout),
      catalogue_(catalogue),
      only_(std::move(only)) {
  tv1.onNodeClick = [this](const std::string& key) { nodeClick(key); };
  setSheet(kSheet);
}

frmTRVN::~frmTRVN() = default;

void frmTRVN::Form_Load() {
  {
    const Raised loading(loading_);
    load();
  }
  loadEnded.emit();
}

void frmTRVN::load() {
  const ReadAheadScope keeping;
  forgetUnopenedFiles();
  const OpenWorkLoad telling;
  trapErrors([this] { loadSteps(); },
             [this](const RunTimeError& error) {
               LastError = shellFailureText("Error in form load event ", error);
               logLine("*Form TRVNV2 load error :" + dateAndTime());
               logLine("*Error  " + std::to_string(error.number()) + " : " + error.description());
             });
  lookForShare();
}

void frmTRVN::loadSteps() {
  ReadCatalogConfiguration();
  writeOperationLog(dateAndTime() + "  Program Start from : " + systemInfo().ComputerName +
                    "  Terminal :" + systemInfo().TerminalID);

  mainEngine_.reset(new (std::nothrow) cBusinessBasic);
  if (!mainEngine_) {
    LastError = kNoEngine;
    logLine("*" + LastError);
    return;
  }

  expectStore();
  fillStatusBar();
  lblStoreName.setCaption(GetStoreName());
  lblStoreName.Refresh();
  settree();
  loadRecap();
  WarrantySegments = GetOption(kFirstWarrantyOption);
  loadViews(view_orders::kStart);
  showCurrent();
  SetFocus();
}

void frmTRVN::fillStatusBar() {
  const cSystem& system = systemInfo();
  sb1.setPanel(0, "Client :" + system.ComputerName);
  sb1.setPanel(1, "Host :" + system.mUNCDrive);
  sb1.setPanel(2, "Terminal :" + system.TerminalID);
  sb1.setPanel(3, "Source :" + system.mDirectory + "      Store # " +
                      std::string(middle(system.mDirectory, kStoreNumberPosition)));
}

std::string frmTRVN::GetStoreName() {
  std::string storeName;
  trapErrors(
      [&] {
        if (!mainEngine_) throw RunTimeError(kObjectNotSet);
        storeName = readStoreName(*mainEngine_);
      },
      [&](const RunTimeError& error) {
        LastError = shellFailureText("Error in GetStoreName function ", error);
        logLine("*" + LastError);
        storeName = kNoStoreName;
      });
  return storeName;
}

void frmTRVN::settree() {
  trapErrors(
      [this] {
        for (const TreeEntry& entry : treeEntries()) {
          tv1.add({.key = std::string(entry.key),
                   .parent = std::string(entry.parent),
                   .text = std::string(entry.text),
                   .image = entry.image,
                   .selectedImage = entry.selectedImage});
        }
        for (std::size_t index = 0; index < tv1.nodes().size(); ++index) {
          tv1.setExpanded(index, true);
        }
        tv1.select(tv1.nodes().back().key);
      },
      [this](const RunTimeError& error) {
        LastError = shellFailureText("Error in settree routine ", error);
        MsgBox(LastError);
        logLine("*" + LastError);
      });
}

void frmTRVN::ReLoadBm() {
  if (loading_) return;
  {
    const Raised loading(loading_);
    refresh();
  }
  loadEnded.emit();
}

void frmTRVN::refresh() {
  const ReadAheadScope keeping;
  forgetUnopenedFiles();
  const OpenWorkLoad telling;
  trapErrors([this] { refreshSteps(); },
             [this](const RunTimeError& error) {
               splash().Hide();
               LastError = shellFailureText("Error in ReLoadBm function ", error);
               MsgBox(LastError);
               logLine("*" + LastError);
             });
  lookForShare();
}

/// A file that is gone with its share counts as missing, as one that never was: only the share
/// itself tells the difference.
void frmTRVN::lookForShare() {
  lostShare_.clear();
  if (!SystemInfo || !SharedEngine) return;
  const std::string root = SystemInfo->linkShare();
  if (!shareIsReachable(root)) lostShare_ = root;
}

// The order is not that of the start, the tree's selection stays where it is although the recap is
// on show, and option 320 is not asked again while frmShop asks its own. All three are as they have
// always been.
void frmTRVN::refreshSteps() {
  if (currentView_ == nullptr) throw RunTimeError(kObjectNotSet);
  currentView_->Hide();
  splash().Show();
  expectStore();
  unloadViews(view_orders::kRefreshUnloads);
  releaseViews(view_orders::kRefreshReleases);
  loadRecap();
  loadViews(view_orders::kRefresh);
  splash().Hide();
  showCurrent();
}

void frmTRVN::loadRecap() {
  loadView(kRecap);
  currentView_ = view(kRecap);
}

void frmTRVN::loadViews(std::span<const std::string_view> order) {
  for (const std::string_view name : order) {
    loadView(name);
    // A run that leaves the shop out must still show the billed warranties that a full one shows.
    if (name == kShop && !isWanted(kShop) &&
        (isWanted(kWarranties) || isWanted(kWarrantySegments))) {
      WarrantySegments = GetOption(kWarrantyOption);
    }
  }
}

void frmTRVN::loadView(std::string_view name) {
  const std::string_view formName = chosen(name);
  if (!isWanted(formName) || view(formName) != nullptr) return;
  std::unique_ptr<View> made = catalogue_.make(formName);
  if (!made) return;
  View& loaded = *(views_[std::string(formName)] = std::move(made));
  if (auto* sheet = dynamic_cast<RecapSheet*>(&loaded)) {
    sheet->onViewLog = [this] {
      if (onViewLog) onViewLog();
    };
  }
  loaded.Form_Load();
  loaded.figuresOf = figuresMoment();
}

/// Of the two billed warranty views only one has ever been loaded; both are in the lists.
void frmTRVN::unloadViews(std::span<const std::string_view> order) {
  for (const std::string_view name : order) {
    if (View* loaded = view(name)) loaded->Unload();
  }
}

void frmTRVN::releaseViews(std::span<const std::string_view> order) {
  for (const std::string_view name : order) {
    const auto found = views_.find(name);
    if (found == views_.end()) continue;
    if (found->second.get() == currentView_) currentView_ = nullptr;
    views_.erase(found);
  }
}

void frmTRVN::showCurrent() {
  if (currentView_ == nullptr) throw RunTimeError(kObjectNotSet);
  currentView_->Show();
  PositionView(*currentView_);
  viewShown.emit(currentView_);
}

void frmTRVN::PositionView(View& view) {
  view.setBounds(kViewBounds);
  view.Refresh();
}

void frmTRVN::goTo(std::string_view viewName) {
  View* target = view(chosen(viewName));
  if (target == nullptr) return;  // left out of this run
  if (currentView_ != nullptr) currentView_->Hide();
  currentView_ = target;
  showCurrent();
  SetFocus();
}

void frmTRVN::nodeClick(const std::string& key) {
  dispatchEvent([&] {
    const TreeEntry* entry =
        findEntry(treeEntries(), [&](const TreeEntry& candidate) { return candidate.key == key; });
    if (entry != nullptr && !entry->view.empty()) goTo(entry->view);
  });
}

void frmTRVN::menuClick(std::string_view menu, int index) {
  dispatchEvent([&] { pickFromMenu(menu, index); });
}

void frmTRVN::pickFromMenu(std::string_view menu, int index) {
  const MenuEntry* item = findEntry(menuEntries(), [&](const MenuEntry& candidate) {
    return candidate.menu == menu && candidate.index == index;
  });
  if (item == nullptr) return;
  if (!item->node.empty()) {
    const std::string key(item->node);
    tv1.select(key);
    nodeClick(key);
    return;
  }

  struct Command {
    std::string_view menu;
    int index;
    std::function<void()> run;
  };
  const Command commands[] = {
      {"mfile", 0, [this] { ReLoadBm(); }},
      {"mfile", 5, onExit ? onExit : [this] { Form_Unload(); }},
      {"mopt", 0, onViewLog},
      {"mhelp", 0, onHelp},
      {"mhelp", 2, onAbout},
  };
  for (const Command& command : commands) {
    if (command.menu == menu && command.index == index && command.run) command.run();
  }
}

void frmTRVN::Form_Unload() {
  if (loading_ || std::exchange(ended_, true)) return;
  dispatchEvent([this] {
    unloadViews(view_orders::kEndUnloads);
    releaseViews(view_orders::kEndReleases);
    SystemInfo.reset();
    mainEngine_.reset();
    SharedEngine.reset();
    releaseSplash();
    writeOperationLog(dateAndTime() + "  Program End ");
  });
}

View* frmTRVN::view(std::string_view name) const {
  const auto found = views_.find(name);
  return found == views_.end() ? nullptr : found->second.get();
}

std::vector<View*> frmTRVN::loadedViews() const {
  std::vector<View*> loaded;
  const auto append = [&](std::string_view name) {
    if (View* found = view(name)) loaded.push_back(found);
  };
  append(kRecap);
  for (const std::string_view name : view_orders::kStart)
    append(chosen(name));
  return loaded;
}

bool frmTRVN::isWanted(std::string_view name) const {
  return only_.empty() || name == kRecap ||
         std::find(only_.begin(), only_.end(), name) != only_.end();
}

}  // namespace dg
