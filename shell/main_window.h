#pragma once

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

/// A node of the navigation tree as data.
struct TreeEntry {
  std::string_view key, parent, text;
  int image, selectedImage;
  std::string_view view;  ///< form shown by a click; empty for none; see warrantyView
};
std::span<const TreeEntry> treeEntries();

/// A menu item as data. Gaps in the indices are part of the design.
struct MenuEntry {
  std::string_view menu;  ///< "mfile", "mview", "minv", "mopt", "mhelp"
  int index;
  std::string_view caption;  ///< "-" for a separator
  std::string_view node;     ///< tree node that the item goes to; empty for none
};
std::span<const MenuEntry> menuEntries();

/// The main window: tree, status bar, store name, and the views, one of which is on show.
class frmTRVN final : public Form {
 public:
  /// `only`: names of the views to load, all when empty.
  explicit frmTRVN(const ViewCatalogue& catalogue, std::vector<std::string> only = {});
  ~frmTRVN() override;

  void Form_Load();
  /// File/Refresh.
  void ReLoadBm();
  void settree();
  std::string GetStoreName();
  void PositionView(View& view);
  /// The user clicks a node, or picks a menu item that goes to one.
  void nodeClick(const std::string& key);
  void menuClick(std::string_view menu, int index);
  /// Program end: unloads the views, releases the engines, logs the end.
  void Form_Unload();

  View* CurrentView() const { return currentView_; }
  /// A loaded view by form name, or null.
  View* view(std::string_view name) const;
  /// The loaded views in the order of the last load, the recap first.
  std::vector<View*> loadedViews() const;

  Label& lblStoreName;
  Label& Label1;
  TreeView& tv1;
  StatusBar& sb1;
  std::string LastError;

  Signal<View*> viewShown;          ///< another view is on show
  std::function<void()> onExit;     ///< File/Exit
  std::function<void()> onHelp;     ///< Help
  std::function<void()> onViewLog;  ///< View Log File, and a click on a recap label in error
  std::function<void()> onAbout;

 private:
  void loadViews(std::span<const std::string_view> order);
  void loadView(std::string_view name);
  void unloadView(std::string_view name);
  void goTo(std::string_view viewName);
  static std::string_view warrantyView();

  const ViewCatalogue& catalogue_;
  std::vector<std::string> only_;
  std::map<std::string, std::unique_ptr<View>, std::less<>> views_;
  std::vector<std::string> loadOrder_;
  View* currentView_ = nullptr;
  std::shared_ptr<cBusinessBasic> mainEngine_;
  bool refreshing_ = false;
};

}  // namespace dg
