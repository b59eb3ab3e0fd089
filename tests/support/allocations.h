// SPDX-License-Identifier: Apache-2.0

// Running out of memory at a chosen allocation. A test program that wants it
// replaces operator new by one that asks AllocationFails().
#pragma once

#include <atomic>
#include <utility>

// Counts down to the allocation that fails, on any thread: 1 is the next one; 0: none fails.
inline std::atomic<int> failing_allocation = 0;

inline thread_local bool allocations_never_fail = false;

// Scope of allocations that neither count nor fail: the test's own, in the
// middle of a call of the plug-in.
class NeverFailing {
 public:
  NeverFailing() noexcept : before_(std::exchange(allocations_never_fail, true)) {}
  ~NeverFailing() { allocations_never_fail = before_; }
  NeverFailing(const NeverFailing&) = delete;
  NeverFailing& operator=(const NeverFailing&) = delete;

 private:
  const bool before_;
};

inline bool AllocationFails() {
  return !allocations_never_fail && failing_allocation > 0 && --failing_allocation == 0;
}
