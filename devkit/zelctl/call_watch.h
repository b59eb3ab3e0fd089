// SPDX-License-Identifier: Apache-2.0

// A library that ends zelctl while the plug-in calls it does not do so in silence.
#pragma once

#include <string>

namespace zelctl {

// While it lives: a signal that kills the process, or an exit, is told on standard error
// with `doing`, as "calling Init of the mode parser". An exit then has status 1. So is a call
// that takes long, which goes on. One at a time.
class CallWatch {
 public:
  explicit CallWatch(const std::string& doing);
  ~CallWatch();
  CallWatch(const CallWatch&) = delete;
  CallWatch& operator=(const CallWatch&) = delete;
};

}  // namespace zelctl
