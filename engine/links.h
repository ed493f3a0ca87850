#pragma once

#include <memory>
#include <string>
#include <vector>

#include "engine/collection.h"

namespace dg {

/// Name of the link table in the root of the link share.
inline constexpr const char* kLinkTable = "LINKSFILE";

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

  /// The store directories that the entries belong to, in the order of their first entries; upper
  /// and lower case are one. Names as they stand in the table: of any content.
  std::vector<std::string> directories() const;
};

}  // namespace dg
