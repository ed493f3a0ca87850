#include "shell/view.h"

namespace dg {

std::unique_ptr<View> ViewCatalogue::make(std::string_view name) const {
  for (const auto& [known, factory] : entries_) {
    if (known == name) return factory();
  }
  return nullptr;
}

}  // namespace dg
