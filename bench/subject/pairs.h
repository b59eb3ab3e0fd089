// SPDX-License-Identifier: Apache-2.0

// The measured pairs, by subject.
#pragma once

#include <vector>

#include "bench/bench_api.h"

std::vector<ZelPair> ModeOperationPairs();
std::vector<ZelPair> PropertyPairs();
std::vector<ZelPair> ArithmeticPairs();
std::vector<ZelPair> StartUpPairs();
std::vector<ZelPair> GrowthPairs();
std::vector<ZelPair> EndToEndPairs();
std::vector<ZelPair> PicturePairs();

inline constexpr double kMedian = 0.5;
inline constexpr double kTenth = 0.1;
inline constexpr double kAnyAllocations = -1;

// Keeps the compiler from dropping work whose result nobody reads.
inline void Keep(const void* result) { asm volatile("" : : "r"(result) : "memory"); }
