// SPDX-License-Identifier: Apache-2.0

// Calls of the render-intent operation, one after the other, into one record.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "devkit/zelctl/blocks/pcc_block.h"
#include "devkit/zelctl/host_session.h"
#include "devkit/zelctl/render_options.h"
#include "modes/color_mode.h"

namespace zelctl {

// One call and what is set before it.
struct RenderStep {
  std::string label;
  std::function<void(HostSession*)> prepare;  // empty: nothing is set
  size_t mode = 0;                            // place in the mode list
};

// A step for each setting that changes the PCC block, in the order in which the
// plug-in composes them. They refer to `options`.
std::vector<RenderStep> ColorSettings(const RenderOptions& options, size_t mode);

// The mode as it is, then with one colour setting more each time.
std::vector<RenderStep> StepByStep(const RenderOptions& options,
                                   const velaricolor::ColorModeList& list, size_t mode);

// The PCC block after each step. `output` takes the blocks.
std::vector<PccStep> RunSteps(const std::vector<RenderStep>& steps,
                              const velaricolor::ColorModeList& list, HostSession* session,
                              velaricolor::HwConfigOutputParams* output);

}  // namespace zelctl
