#pragma once

#include <array>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "forms/control.h"
#include "forms/grid.h"
#include "forms/label.h"
#include "forms/simple_controls.h"
#include "platform/values/run_time_error.h"

namespace dg {

/// Where a control stands on its sheet: a cell of a grid of rows and columns, and how many it
/// spans. Rows that hold grids or text areas take the room there is.
struct Place {
  std::string_view control;  ///< its name, "name(index)" for an element of an array
  int row = 0;
  int column = 0;
  int rowSpan = 1;
  int columnSpan = 1;
  std::string_view frame = {};  ///< name of the frame that holds it; empty: the form itself
  bool figure = false;          ///< a figure below or above others: ends where they end
  std::string_view under = {};  ///< of a total: the column of the grid above that it sums
};

/// "name(index)": the name of an element of a control array.
std::string elementName(std::string_view array, int index);

/// Where a window stands inside its frame, in twips (1/1440 inch).
struct Bounds {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;

  bool operator==(const Bounds&) const = default;
};

/// A box with a caption around other controls.
class Frame final : public Control {
 public:
  Frame(std::string name, std::string caption)
      : Control(std::move(name)), caption_(std::move(caption)) {}
  const std::string& caption() const { return caption_; }
  void setCaption(std::string caption) {
    caption_ = std::move(caption);
    changed.emit();
  }

 private:
  std::string caption_;
};

/// A window: a caption and the controls on it.
class Form {
 public:
  Form(std::string name, std::string caption);
  virtual ~Form() = default;
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  const std::string& name() const { return name_; }
  const std::string& caption() const { return caption_; }
  void setCaption(std::string caption);
  void appendCaption(std::string_view text) { setCaption(caption_ + std::string(text)); }

  /// All controls in the order of their making.
  const std::vector<std::unique_ptr<Control>>& controls() const { return controls_; }
  /// A control by name, or null.
  Control* find(std::string_view name) const;
  /// A control by name and kind; raises 91 when there is none.
  template <class T>
  T& get(std::string_view name) const {
    T* control = dynamic_cast<T*>(find(name));
    if (control == nullptr) throw RunTimeError(kObjectNotSet);
    return *control;
  }

  /// Whether something of what the form shows could not be read: figures and rows may be a part.
  bool incomplete() const { return incomplete_; }
  void markIncomplete();

  /// Where the controls stand. Controls without a place are drawn one below the other.
  std::span<const Place> sheet() const { return sheet_; }

  /// Whether the form is on show.
  bool visible() const { return visible_; }
  void Show();
  void Hide();
  /// Shows the form and returns when the user has closed it; see Presenter.
  void ShowModal();
  void SetFocus();
  /// Closes the form as a button of its own does it. The form may be gone afterwards: an observer
  /// of `unloaded` can drop it.
  void Unload();

  /// The place and size that the program gives the form; all zero: wherever it fits.
  const Bounds& bounds() const { return bounds_; }
  void setBounds(const Bounds& bounds);

  void setMousePointer(int pointer);  ///< kDefaultPointer or kHourglass
  int mousePointer() const { return mousePointer_; }
  void Refresh() const { refreshed.emit(); }

  Signal<> changed;    ///< caption, pointer, bounds, completeness or set of controls
  Signal<> refreshed;  ///< draw at once
  Signal<> unloaded;

 protected:
  /// Makes a control and keeps it; the reference lives as long as the form.
  template <class T, class... Args>
  T& add(Args&&... args) {
    auto control = std::make_unique<T>(std::forward<Args>(args)...);
    T& reference = *control;
    byName_[reference.name()] = control.get();
    controls_.push_back(std::move(control));
    return reference;
  }
  /// Makes a title that nobody asks for again, and a control under it.
  template <class T, class... Args>
  T& addTitled(std::string label, std::string title, Args&&... args) {
    add<Label>(std::move(label), std::move(title), LabelRole::kTitle);
    return add<T>(std::forward<Args>(args)...);
  }
  /// Makes a frame and the first control in it.
  template <class T, class... Args>
  T& addFramed(std::string frame, std::string caption, Args&&... args) {
    add<Frame>(std::move(frame), std::move(caption));
    return add<T>(std::forward<Args>(args)...);
  }
  /// Makes the labels "array(0)" to "array(N - 1)" of a control array.
  template <std::size_t N>
  std::array<Label*, N> addLabels(std::string_view array, LabelRole role = LabelRole::kValue) {
    std::array<Label*, N> labels{};
    for (std::size_t i = 0; i < N; ++i) {
      labels[i] = &add<Label>(elementName(array, static_cast<int>(i)), "", role);
    }
    return labels;
  }
  void setSheet(std::span<const Place> sheet) { sheet_ = sheet; }

 private:
  std::string name_;
  std::string caption_;
  std::vector<std::unique_ptr<Control>> controls_;
  std::map<std::string, Control*, std::less<>> byName_;
  std::span<const Place> sheet_;
  Bounds bounds_;
  bool visible_ = false;
  bool incomplete_ = false;
  int mousePointer_ = 0;
};

inline constexpr int kDefaultPointer = 0;
inline constexpr int kHourglass = 11;

/// What shows forms: dialogs on the desktop, a recorder in the command-line tool, nothing in tests.
class Presenter {
 public:
  virtual ~Presenter() = default;
  virtual void show(Form&) {}
  virtual void hide(Form&) {}
  /// Returns when the user has closed the form.
  virtual void showModal(Form&) {}
  virtual void unload(Form&) {}
  virtual void setFocus(Form&) {}
  /// The whole screen's pointer, kDefaultPointer or kHourglass.
  virtual void setMousePointer(int) {}
};

/// The presenter in use; never null. setPresenter(nullptr) restores the one that does nothing.
Presenter& presenter();
void setPresenter(Presenter* presenter);

}  // namespace dg
