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

// `count` payloads of the smallest block, under the ten names' first ones that
// share its type; for measuring how cost grows.
std::vector<tarn::HwConfigPayload> MakeManyBlocks(size_t count);
