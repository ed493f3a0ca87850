#pragma once

#include <map>
#include <string>

#include "tools/check/check_run.h"

namespace dg::check {

/// Examines the link table: whether its names lead to directory files that have them. What other
/// stores' links lead to is theirs, and only noted.
class LinkChecker {
 public:
  explicit LinkChecker(CheckRun& run) : run_(run) {}
  void check();

 private:
  void checkLink(const LinkEntry& link);
  void checkOwnLink(const LinkEntry& link, const Place& place);
  void checkOthersLink(const LinkEntry& link, const Place& place);
  void checkMissingNames();

  CheckRun& run_;
  std::map<std::string, Presence, std::less<>> others_;  ///< by resolution: many links lead to each
};

}  // namespace dg::check
