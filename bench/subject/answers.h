// SPDX-License-Identifier: Apache-2.0

// What the benchmark's mode parser hands out: records built beforehand.
#pragma once

#include <string>
#include <vector>

#include "modes/color_mode.h"
#include "modes/mode_op_params.h"

struct BenchAnswers {
  std::vector<tarn::ColorMode> modes;
  std::vector<tarn::HwConfigPayload> blocks;
};

__attribute__((visibility("default"))) BenchAnswers& TheAnswers();

// Modes of a plausible size: two assets each.
std::vector<tarn::ColorMode> MakeModes(size_t count);

// The ten blocks of a full mode, dimensioned as the plug-in expects them.
std::vector<tarn::HwConfigPayload> MakeBlocks();

// For measuring how cost grows: `count` times the same small block, and one gamma
// block of `entries`.
std::vector<tarn::HwConfigPayload> MakeManyBlocks(size_t count);
std::vector<tarn::HwConfigPayload> MakeGammaBlock(uint32_t entries);
