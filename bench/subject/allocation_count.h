// SPDX-License-Identifier: Apache-2.0

// Counts the heap allocations of the code under test.
#pragma once

// While one lives, allocations are somebody else's and don't count.
class __attribute__((visibility("default"))) UncountedAllocations {
 public:
  UncountedAllocations();
  ~UncountedAllocations();
  UncountedAllocations(const UncountedAllocations&) = delete;
  UncountedAllocations& operator=(const UncountedAllocations&) = delete;

 private:
  bool counted_before_;
};
