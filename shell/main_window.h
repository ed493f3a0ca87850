#pragma once

#include <functional>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "engine/business_basic.h"
#include "forms/form.h"
#include "forms/tree_view.h"
#include "shell/view.h"

namespace dg {

/// True selects the billed warranties by segment, frmWarSeg, over frmWarranty. Written by the main
/// window's load and then by the load of frmShop, whose option decides.
extern bool WarrantySegments;

/// The main window's company option behind WarrantySegments; the one that decides is
/// kWarrantyOption.
inline constexpr std::int32_t kFirstWarrantyOption = 320;

/// Where the installed program's help lies.
inline constexpr const char* kHelpFile =
    R"(C:\Program Files\Velmora Software, Inc\Quillon\Terminal Apps\Dealer Gauge.chm)";

/// A node of the navigation tree as data.
struct TreeEntry {
  std::string_view key, parent, text;
  int image, selectedImage;
  std::string_view view;  ///< form shown by a click; empty for none. "frmWarranty" stands for
                          ///< whichever of the two billed warranty views is loaded
};
std::span<const TreeEntry> treeEntries();

/// A menu of the menu bar as data.
struct MenuHead {
  std::string_view name, caption;
  std::string_view items;  ///< the control array of its items, MenuEntry::menu
};
std::span<const MenuHead> menuHeads();

/// A menu item as data. Gaps in the indices are part of the design.
struct MenuEntry {
  std::string_view menu;  ///< "mfile", "mview", "minv", "mopt", "mhelp"
  int index;
  std::string_view caption;  ///< "-" for a separator
  std::string_view node;     ///< tree node that the item goes to; empty for none
  std::string_view submenu;  ///< the control array of the items below it; empty for none
};
std::span<const MenuEntry> menuEntries();

/// The main window: tree, status bar, store name, and the views, one of which is on show.
class frmTRVN final : public Form {
 public:
  /// `only`: names of the views to load, all when empty. frmRecap is loaded in any case.
  explicit frmTRVN(const ViewCatalogue& catalogue, std::vector<std::string> only = {});
  ~frmTRVN() override;

  /// Connects with the store and loads the views. Traps its own errors: what they leave undone
  /// stays undone.
  void Form_Load();
  /// File/Refresh: loads the views again. Does nothing while a load or refresh runs.
  void ReLoadBm();
  void settree();
  /// The store's name, 35 characters, from the control file.
  std::string GetStoreName();
  void PositionView(View& view);
  /// The user clicks a node, or picks a menu item that goes to one.
  void nodeClick(const std::string& key);
  void menuClick(std::string_view menu, int index);
  /// Program end: unloads the views, releases the engines, logs the end. A second call does
  /// nothing, nor does one while a load or refresh runs.
  void Form_Unload();

  /// Whether a load or refresh runs; the window must stay open meanwhile.
  bool loading() const { return loading_; }

  /// The root of the share, when it could not be reached at the end of the last load or refresh:
  /// what is on show may then lack whatever was to be read behind that. Empty: it was reached.
  const std::string& lostShare() const { return lostShare_; }

  View* CurrentView() const { return currentView_; }
  /// A loaded view by form name, or null.
  View* view(std::string_view name) const;
  /// The loaded views in the order of the program's start, the recap first.
  std::vector<View*> loadedViews() const;

  Label& lblStoreName;
  Label& Label1;
  TreeView& tv1;
  StatusBar& sb1;
  std::string LastError;

  Signal<View*> viewShown;          ///< another view is on show
  Signal<> loadEnded;               ///< a load or refresh is over, whatever came of it
  std::function<void()> onExit;     ///< File/Exit; empty: Form_Unload
  std::function<void()> onHelp;     ///< Help
  std::function<void()> onViewLog;  ///< View Log File, and a click on a recap label in error
  std::function<void()> onAbout;

 private:
  void load();
  void loadSteps();
  void refresh();
  void refreshSteps();
  void fillStatusBar();
  void lookForShare();
  void pickFromMenu(std::string_view menu, int index);
  void loadRecap();
  void loadViews(std::span<const std::string_view> order);
  void loadView(std::string_view name);
  void unloadViews(std::span<const std::string_view> order);
  void releaseViews(std::span<const std::string_view> order);
  void showCurrent();
  void goTo(std::string_view viewName);
  bool isWanted(std::string_view name) const;

  const ViewCatalogue& catalogue_;
  std::vector<std::string> only_;
  std::map<std::string, std::unique_ptr<View>, std::less<>> views_;
  View* currentView_ = nullptr;
  std::shared_ptr<cBusinessBasic> mainEngine_;
  std::string lostShare_;
  bool loading_ = false;
  bool ended_ = false;
};

}  // namespace dg
