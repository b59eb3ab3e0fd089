// SPDX-License-Identifier: Apache-2.0

// A process group that ends with zelctl.
#pragma once

#include <sys/types.h>

namespace zelctl {

// While it lives, a signal that ends zelctl (Ctrl-C and the like) kills the group first.
// One at a time.
class GroupGuard {
 public:
  explicit GroupGuard(pid_t group);
  ~GroupGuard();
  GroupGuard(const GroupGuard&) = delete;
  GroupGuard& operator=(const GroupGuard&) = delete;
};

}  // namespace zelctl
