// SPDX-License-Identifier: Apache-2.0

// Running out of memory at a chosen allocation. A test program that wants it
// replaces operator new by one that asks AllocationFails().
#pragma once

#include <atomic>
#include <utility>

// The how-manyth allocation from now on is to fail, on whatever thread; 0: none.
inline std::atomic<int> failing_allocation = 0;

inline thread_local bool allocations_spared = false;

// Scope of allocations that neither count nor fail: the test's own, in the
// middle of a call of the plug-in.
class Spared {
 public:
  Spared() noexcept : before_(std::exchange(allocations_spared, true)) {}
  ~Spared() { allocations_spared = before_; }
  Spared(const Spared&) = delete;
  Spared& operator=(const Spared&) = delete;

 private:
  const bool before_;
};

inline bool AllocationFails() {
  return !allocations_spared && failing_allocation > 0 && --failing_allocation == 0;
}
