#pragma once

#include "platform/patience.h"

namespace dg {

/// While it lives, windows go on drawing while a load waits for its share, and a load that waits is
/// given up soon once the user wants the program to end.
class ShareWaiting {
 public:
  ShareWaiting();
  ~ShareWaiting();
  ShareWaiting(const ShareWaiting&) = delete;
  ShareWaiting& operator=(const ShareWaiting&) = delete;

  /// The user has closed the window, or the system asks the program to end.
  static void wishEnd(bool isWished = true) { isEndWished_ = isWished; }
  static bool isEndWished() { return isEndWished_; }

 private:
  static bool isEndWished_;
  WhileWaiting former_;
};

}  // namespace dg
