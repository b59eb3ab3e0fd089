// SPDX-License-Identifier: Apache-2.0

// The PCC block as it was after a call, and as a function.
#pragma once

#include <optional>
#include <string>

#include "devkit/reference/color/matrix.h"
#include "modes/mode_op_params.h"
#include "pcc/pcc_config.h"

namespace zelctl {

// A copy: the plug-in composes into the record itself. Empty where the answer
// has no such block.
using PccCopy = std::optional<velaricolor::PccPostBlendConfig>;

PccCopy CopyPcc(const velaricolor::HwConfigOutputParams& output);

// The block after one of several calls.
struct PccStep {
  std::string label;
  PccCopy pcc;
};

// Linear light after the block, not clipped; without a block, or with a
// disabled one, light passes. Throws std::runtime_error where it has no number.
tarn::color::Vec3 ApplyPcc(const PccCopy& pcc, const tarn::color::Vec3& light);

}  // namespace zelctl
