// The PCC block as it was after each round of a render.
#pragma once

#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "devkit/zelctl/json_output.h"
#include "modes/mode_op_params.h"
#include "pcc/pcc_config.h"

namespace zelctl {

struct PccRound {
  std::string label;
  std::optional<velaricolor::PccPostBlendConfig> pcc;  // a copy; empty: there was no such block
};

// The block that the plug-in composes into, the first of its name.
std::optional<velaricolor::PccPostBlendConfig> CopyPcc(
    const velaricolor::HwConfigOutputParams& output);

Json PccRoundsJson(const std::vector<PccRound>& rounds);
void PrintPccRounds(const std::vector<PccRound>& rounds, std::ostream& out);

}  // namespace zelctl
