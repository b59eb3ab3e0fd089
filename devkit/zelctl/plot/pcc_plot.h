// SPDX-License-Identifier: Apache-2.0

// What the PCC block makes of the primaries, step by step.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "devkit/zelctl/blocks/pcc_block.h"

namespace zelctl {

// gnuplot's commands for four plots, one for each of red, green, blue and white
// as they enter the block: the light of the panel's three channels after each
// step, not clipped. All four have the same scale.
std::array<std::string, 4> PccPlots(const std::vector<PccStep>& steps);

}  // namespace zelctl
