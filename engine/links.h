#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "engine/collection.h"
#include "engine/layout.h"

namespace dg {

/// Name of the link table in the root of the link share.
inline constexpr const char* kLinkTable = "LINKSFILE";

/// Layout of an entry of the link table. Each name has one byte in front of it that nobody reads.
namespace link_entry {
inline constexpr std::int32_t kSize = 160;
inline constexpr TextField kLinkName{2, 79};
inline constexpr TextField kResolutionName{82, 79};
}  // namespace link_entry

/// One entry of the link table: where the directory file of a logical file lies.
class cLink {
 public:
  std::string LinkFile;        ///< ":directory:file name"
  std::string ResolutionFile;  ///< path below the link share, ":" in place of each backslash

  /// Both names without their padding; an entry that is cut short has what there is of them.
  static cLink decode(std::string_view entry);
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
