// SPDX-License-Identifier: Apache-2.0

// A picture's way through the blocks.
#pragma once

#include "devkit/zelctl/blocks/block_pipeline.h"
#include "devkit/zelctl/picture/picture.h"
#include "devkit/zelctl/progress.h"

namespace zelctl {

// Replaces the colours of `picture` by the signals that the panel is driven with, in as
// many threads, this one among them. Alpha stays. Throws std::runtime_error where the
// blocks give no number.
void SendThrough(const BlockPipeline& pipeline, unsigned threads, Picture* picture,
                 Progress* progress);

}  // namespace zelctl
