#include "forms/tree_view.h"

#include <algorithm>
#include <utility>

#include "platform/values/run_time_error.h"

namespace dg {

namespace {

constexpr int kElementNotFound = 35601;
constexpr int kKeyNotUnique = 35602;

[[noreturn]] void raiseElementNotFound() {
  throw RunTimeError(kElementNotFound, "TreeView", "Element not found");
}

}  // namespace

bool TreeView::contains(const std::string& key) const {
  return std::any_of(nodes_.begin(), nodes_.end(),
                     [&key](const Node& node) { return node.key == key; });
}

void TreeView::clear() {
  nodes_.clear();
  selected_.clear();
  changed.emit();
}

void TreeView::add(Node node) {
  if (!node.parent.empty() && !contains(node.parent)) raiseElementNotFound();
  if (contains(node.key)) {
    throw RunTimeError(kKeyNotUnique, "TreeView", "Key is not unique in collection");
  }
  nodes_.push_back(std::move(node));
  changed.emit();
}

void TreeView::setExpanded(std::size_t index, bool expanded) {
  if (index >= nodes_.size()) raiseElementNotFound();
  nodes_[index].expanded = expanded;
  changed.emit();
}

void TreeView::select(const std::string& key) {
  if (!contains(key)) raiseElementNotFound();
  selected_ = key;
  changed.emit();
}

void TreeView::click(const std::string& key) {
  dispatchEvent([&] {
    select(key);
    if (onNodeClick) onNodeClick(key);
  });
}

}  // namespace dg
