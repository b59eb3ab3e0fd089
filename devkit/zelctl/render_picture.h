// SPDX-License-Identifier: Apache-2.0

// A picture sent through the blocks of a mode.
#pragma once

#include "devkit/zelctl/blocks/block_pipeline.h"
#include "devkit/zelctl/png_file.h"
#include "devkit/zelctl/progress.h"

namespace zelctl {

// Replaces the content's codes by those that the panel is driven with. Alpha stays.
void SendThrough(const BlockPipeline& pipeline, Picture* picture, Progress* progress);

}  // namespace zelctl
