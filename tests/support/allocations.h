// Running out of memory at a chosen allocation. A test program that wants it
// replaces operator new by one that asks AllocationFails().
#pragma once

#include <atomic>
#include <utility>

// The how-manyth allocation from now on is to fail, on whatever thread; 0: none.
inline std::atomic<int> failing_allocation = 0;

// Scope of allocations that neither count nor fail: the test's own, in the
// middle of a call of the plug-in.
class Spared {
 public:
  Spared() : before_(std::exchange(spared_, true)) {}
  ~Spared() { spared_ = before_; }
  Spared(const Spared&) = delete;
  Spared& operator=(const Spared&) = delete;

 private:
  friend bool AllocationFails();

  inline static thread_local bool spared_ = false;
  const bool before_;
};

inline bool AllocationFails() {
  return !Spared::spared_ && failing_allocation > 0 && --failing_allocation == 0;
}
