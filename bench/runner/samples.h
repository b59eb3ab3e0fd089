// SPDX-License-Identifier: Apache-2.0

// What was measured of each pair, and the table made of it.
#pragma once

#include <cstddef>
#include <vector>

#include "bench/bench_api.h"

// Seconds per call.
struct Sample {
  double subject;
  double floor;
};

struct Samples {
  void Add(const Sample& sample) { all.push_back(sample); }

  std::vector<Sample> all;
  double allocations = -1;  // of the plug-in per call, < 0 where not counted
};

Samples& SamplesOf(size_t pair);

Sample Measure(const ZelPair& pair, bool floor_first);
double CountAllocations(const ZelPair& pair);

// Prints the table. With `check`, says which target is missed; returns the
// program's exit status, 1 where one is.
int PrintTable(bool check);
