#pragma once

#include <cstdint>
#include <string>

namespace dg::test {

/// Calls of the system that a load makes of its share.
enum class ShareCall {
  kOpen,
  kRead,
  kClose,
  kStatus,  ///< of a path or an open file, and the path behind links
  kFolder,  ///< a folder is opened to be listed, or its next entry is asked for
};
inline constexpr int kShareCalls = 5;

/// What becomes of a call.
struct ShareFault {
  /// Stands for an error number: a read gives half of what it was asked for, and no error.
  static constexpr int kShortRead = -1;
  /// The same: a read gives nothing, as at the file's end.
  static constexpr int kNoBytes = -2;

  ShareCall call = ShareCall::kRead;
  int error = 0;            ///< of errno
  std::uint64_t after = 0;  ///< so many calls of the kind pass first
  bool forEver = false;     ///< all later ones fail too
};

/// While it lives, the calls of this process for what lies below a folder are counted, and fail as
/// told. One at a time; in the place of the C library's for the whole test program.
class ShareCallScope {
 public:
  explicit ShareCallScope(const std::string& folder);
  ShareCallScope(const std::string& folder, const ShareFault& fault);
  ~ShareCallScope();
  ShareCallScope(const ShareCallScope&) = delete;
  ShareCallScope& operator=(const ShareCallScope&) = delete;

  std::uint64_t count(ShareCall call) const;
};

}  // namespace dg::test
