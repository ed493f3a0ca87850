#pragma once

#include <unistd.h>

namespace dg {

/// While it lives, this process has no more rights than any user: tests often run as root, whom no
/// permission binds.
class Unprivileged {
 public:
  Unprivileged() : isRoot_(::geteuid() == 0) {
    if (isRoot_ && ::seteuid(kNobody) != 0) isRoot_ = false;
  }
  ~Unprivileged() {
    if (isRoot_) static_cast<void>(::seteuid(0));
  }
  Unprivileged(const Unprivileged&) = delete;
  Unprivileged& operator=(const Unprivileged&) = delete;

 private:
  static constexpr uid_t kNobody = 65534;
  bool isRoot_;
};

}  // namespace dg
