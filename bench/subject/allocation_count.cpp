// SPDX-License-Identifier: Apache-2.0
#include "bench/subject/allocation_count.h"

#include <cstdlib>
#include <new>

#include "bench/bench_api.h"

namespace {

// Plain, for a thread's own would be looked up at each use: where several threads
// run, nobody counts.
bool counting = false;
size_t count = 0;

}  // namespace

UncountedAllocations::UncountedAllocations() : counted_before_(counting) { counting = false; }
UncountedAllocations::~UncountedAllocations() { counting = counted_before_; }

void ZelStartCount() {
  count = 0;
  counting = true;
}

size_t ZelStopCount() {
  counting = false;
  return count;
}

// Of the whole program: the plug-in's and its standard library's calls end here.
__attribute__((visibility("default"))) void* operator new(size_t size) {
  if (counting) ++count;
  if (void* const memory = std::malloc(size == 0 ? 1 : size); memory != nullptr) return memory;
  throw std::bad_alloc();
}

__attribute__((visibility("default"))) void operator delete(void* memory) noexcept {
  std::free(memory);
}

__attribute__((visibility("default"))) void operator delete(void* memory,
                                                            size_t /*size*/) noexcept {
  std::free(memory);
}
