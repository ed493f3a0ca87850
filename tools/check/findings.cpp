#include "tools/check/findings.h"

#include <algorithm>

namespace dg::check {

void Findings::add(Finding finding) {
  const bool isDamage = finding.severity == Severity::kDamage;
  ++(isDamage ? damage_ : notes_);
  const auto [known, isNew] = byFile_.emplace(finding.place.file, files_.size());
  if (isNew) files_.push_back({.file = finding.place.file, .kept = {}});
  FileFindings& file = files_[known->second];
  if (file.kept.size() < perFile_) {
    file.kept.push_back(std::move(finding));
    return;
  }
  if (!isDamage) {
    ++file.moreNotes;
    return;
  }
  const auto lastNote = std::find_if(file.kept.rbegin(), file.kept.rend(), [](const Finding& kept) {
    return kept.severity == Severity::kNote;
  });
  if (lastNote == file.kept.rend()) {
    ++file.moreDamage;
    return;
  }
  file.kept.erase(std::next(lastNote).base());
  file.kept.push_back(std::move(finding));
  ++file.moreNotes;
}

}  // namespace dg::check
