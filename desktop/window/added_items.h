#pragma once

#include <QString>
#include <span>

class QWidget;

namespace dg {

class AddedPage;
class frmTRVN;
class HistoryKeeper;
class TodaysWork;

/// What the added pages show.
struct PageSources {
  const frmTRVN& main;
  TodaysWork& work;
  HistoryKeeper& keeper;
};

/// An item behind the last one of the View menu. It leads to a page or to a dialog; the other
/// function is null.
struct AddedItem {
  const char* name;  ///< of its action and its page, and what the guide knows it by
  const char* caption;
  AddedPage* (*makePage)(const PageSources& sources, QWidget* parent);
  void (*openDialog)(const PageSources& sources, QWidget* parent);

  /// The caption as the user reads it.
  QString text() const;
};

/// All of them, in the menu's order.
std::span<const AddedItem> addedItems();

}  // namespace dg
