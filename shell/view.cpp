#include "shell/view.h"

#include "shell/recap_sheet.h"

namespace dg {

std::unique_ptr<View> ViewCatalogue::make(std::string_view name) const {
  for (const auto& [known, factory] : entries_) {
    if (known == name) return factory();
  }
  return nullptr;
}

std::optional<Date> momentOf(const Form& form) {
  const auto* view = dynamic_cast<const View*>(&form);
  return view != nullptr ? view->figuresOf : figuresMoment();
}

}  // namespace dg
