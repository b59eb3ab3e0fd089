// SPDX-License-Identifier: Apache-2.0

// The list of patches that a meter's program shows and measures.
#pragma once

#include <string>

#include "devkit/zelctl/report/evaluation.h"

namespace zelctl {

// The mode's patches as a CTI1 file: device values from 0 to 100 and the XYZ expected,
// with full white at Y = 100. Patches with equal codes stand once.
std::string PatchesFile(const ModeEvaluation& mode);

}  // namespace zelctl
