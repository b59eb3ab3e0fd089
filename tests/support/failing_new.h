// SPDX-License-Identifier: Apache-2.0

// operator new that fails when AllocationFails() says so. For one source of a program.
#pragma once

#include <algorithm>
#include <cstdlib>
#include <new>

#include "tests/support/allocations.h"

// Of the whole program: the plug-in's and its standard library's calls end here.
__attribute__((visibility("default"))) void* operator new(size_t size) {
  void* const memory = AllocationFails() ? nullptr : std::malloc(std::max(size, size_t{1}));
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}
__attribute__((visibility("default"))) void operator delete(void* memory) noexcept {
  std::free(memory);
}
__attribute__((visibility("default"))) void operator delete(void* memory,
                                                            size_t /*size*/) noexcept {
  std::free(memory);
}
