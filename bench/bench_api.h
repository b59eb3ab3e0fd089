// SPDX-License-Identifier: Apache-2.0

// The plain C boundary between the benchmark program, which is built with
// Debian's benchmark library and so with that library's standard library, and
// the measured code, which is built with libc++. Nothing of either crosses it.
#pragma once

#include <stddef.h>  // NOLINT(modernize-deprecated-headers): plain C

#ifdef __cplusplus
extern "C" {
#endif

// One figure and its floor. Both run the same number of calls in turn; the
// ratio of their times is what counts.
typedef struct ZelPair {  // NOLINT(modernize-use-using): plain C
  const char* name;
  double target;       // highest ratio that passes, 0 for none
  double percentile;   // of the ratios, which the target is compared with
  unsigned calls;      // in one sample
  double allocations;  // heap allocations of the plug-in per call that pass, < 0 for any
  void (*set_up)(size_t argument);
  void (*subject)(unsigned calls);
  void (*floor)(unsigned calls);
  void (*tear_down)(void);
  size_t argument;  // of set_up: a size, or a choice
} ZelPair;

__attribute__((visibility("default"))) size_t ZelPairCount(void);
__attribute__((visibility("default"))) const ZelPair* ZelPairAt(size_t index);

// Heap allocations that the plug-in made since the count was last started; what
// the stand-in libraries allocate does not count.
__attribute__((visibility("default"))) void ZelStartCount(void);
__attribute__((visibility("default"))) size_t ZelStopCount(void);

// Prints how long the slowest mode switches take while other threads call.
__attribute__((visibility("default"))) void ZelPrintTail(void);

// Prints the memory that the plug-in takes.
__attribute__((visibility("default"))) void ZelPrintFootprint(void);

#ifdef __cplusplus
}
#endif
