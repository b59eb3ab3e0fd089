// SPDX-License-Identifier: Apache-2.0

// The curves of an IGC or GC block.
#pragma once

#include <string>

#include "devkit/zelctl/blocks/gamma_block.h"

namespace zelctl {

// gnuplot's commands for one plot.
std::string GammaPlot(const GammaBlock& block);

}  // namespace zelctl
