// SPDX-License-Identifier: Apache-2.0

// The gamut table of a mode.
#pragma once

#include "devkit/reference/panel/panel.h"
#include "handlers/post_blend_hw_config.h"

namespace tarn::reference {

// Maps what the panel lacks, and finishes the curve of HLG, whose system gamma
// depends on all three channels. Disabled, and the identity, where neither is
// to be done.
HwConfigPayload GamutBlock(const Panel& panel, const Target& target,
                           const zeltarn::TableDimensions& size);

}  // namespace tarn::reference
