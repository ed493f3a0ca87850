#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "forms/form.h"
#include "platform/values/date.h"

namespace dg {

/// A view of the main window: a form that reads its files when it is loaded.
class View : public Form {
 public:
  using Form::Form;
  /// Reads the files, fills the grids, writes the recap labels. Traps its own errors.
  virtual void Form_Load() = 0;

  /// When the load or refresh began that its figures are of; set by the main window. Not always the
  /// recap's: a view that a refresh leaves alone keeps its own.
  std::optional<Date> figuresOf;
};

/// The views there are, by form name: how the shell makes them without knowing their classes.
class ViewCatalogue {
 public:
  using Factory = std::function<std::unique_ptr<View>()>;
  void add(std::string name, Factory factory) {
    entries_.emplace_back(std::move(name), std::move(factory));
  }
  /// A new view that is not loaded yet; empty when the catalogue has none of that name.
  std::unique_ptr<View> make(std::string_view name) const;
  /// The names, in the order in which they were added.
  std::vector<std::string> names() const {
    std::vector<std::string> result;
    for (const auto& entry : entries_)
      result.push_back(entry.first);
    return result;
  }

 private:
  std::vector<std::pair<std::string, Factory>> entries_;
};

/// The moment of a form's figures: a view's own, of any other window that of the recap.
std::optional<Date> momentOf(const Form& form);

}  // namespace dg
