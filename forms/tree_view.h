#pragma once

#include <functional>
#include <string>
#include <vector>

#include "forms/control.h"

namespace dg {

/// A tree of nodes with keys.
class TreeView final : public Control {
 public:
  struct Node {
    std::string key;
    std::string parent = {};  ///< key of the parent; empty for a root
    std::string text = {};
    int image = 0;          ///< index into the tree's image list, from 1
    int selectedImage = 0;  ///< the same while selected
    bool expanded = false;
  };
  using Control::Control;

  void clear();
  /// Appends a node below its parent. Raises 35601 for an unknown parent, 35602 for a taken key.
  void add(Node node);
  const std::vector<Node>& nodes() const { return nodes_; }
  bool contains(const std::string& key) const;
  void setExpanded(std::size_t index, bool expanded);

  const std::string& selected() const { return selected_; }
  /// Marks a node selected, without a click event. Raises 35601 for an unknown key.
  void select(const std::string& key);

  std::function<void(const std::string& key)> onNodeClick;
  /// The user clicks a node: it is selected, and the click event runs.
  void click(const std::string& key);

 private:
  std::vector<Node> nodes_;
  std::string selected_;
};

}  // namespace dg
