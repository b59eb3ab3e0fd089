// SPDX-License-Identifier: Apache-2.0

// The PCC block as it was after each step of a render, as a table and as JSON.
#pragma once

#include <ostream>
#include <vector>

#include "devkit/zelctl/blocks/pcc_block.h"
#include "devkit/zelctl/json_output.h"

namespace zelctl {

Json PccStepsJson(const std::vector<PccStep>& steps);
void PrintPccSteps(const std::vector<PccStep>& steps, std::ostream& out);

}  // namespace zelctl
