#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "tools/check/finding.h"

namespace dg::check {

/// What was found in one file: the first findings, and how many more there were.
struct FileFindings {
  std::string file;
  std::vector<Finding> kept;
  std::int64_t moreDamage = 0;
  std::int64_t moreNotes = 0;
};

/// Collects findings by file, in the order in which files first had one. Keeps so many of each file
/// that a hostile store cannot fill the memory; damage has precedence over notes.
class Findings {
 public:
  /// `perFile` is at least 1.
  explicit Findings(std::size_t perFile) : perFile_(perFile) {}

  void damage(std::string_view kind, Place place, std::string text) {
    add({.severity = Severity::kDamage,
         .kind = kind,
         .place = std::move(place),
         .text = std::move(text)});
  }
  void note(std::string_view kind, Place place, std::string text) {
    add({.severity = Severity::kNote,
         .kind = kind,
         .place = std::move(place),
         .text = std::move(text)});
  }
  void add(Finding finding);

  const std::vector<FileFindings>& files() const { return files_; }
  std::int64_t damageCount() const { return damage_; }
  std::int64_t noteCount() const { return notes_; }

 private:
  std::size_t perFile_;
  std::vector<FileFindings> files_;
  std::map<std::string, std::size_t, std::less<>> byFile_;  // positions in files_
  std::int64_t damage_ = 0;
  std::int64_t notes_ = 0;
};

}  // namespace dg::check
