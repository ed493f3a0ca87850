#pragma once

#include <memory>
#include <string>

#include "engine/collection.h"

namespace dg {

/// One entry of the link table: where the directory file of a logical file lies.
class cLink {
 public:
  std::string LinkFile;        ///< ":directory:file name"
  std::string ResolutionFile;  ///< path below the link share, ":" in place of each backslash
};

/// The link table, by link name.
class cLinks : public Collection<cLink> {
 public:
  std::shared_ptr<cLink> Add(const std::string& LinkFile, const std::string& ResolutionFile,
                             const std::string& sKey);

  /// Adds the entries of the table at `path`. A repeated link name is dropped: the first stays. A
  /// table that is not there has no links: nothing is created on the share.
  void load(const std::string& path);
};

}  // namespace dg
