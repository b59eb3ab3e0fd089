// SPDX-License-Identifier: Apache-2.0

// The blocks of a mode that are computed from the panel's calibration.
#pragma once

#include "devkit/reference/panel/panel.h"
#include "handlers/post_blend_hw_config.h"

namespace tarn::reference {

// Those of all tables, until the host sets others.
struct Dimensions {
  zeltarn::TableDimensions igc = zeltarn::kDefaultInverseGamma;
  zeltarn::TableDimensions gc = zeltarn::kDefaultGamma;
  zeltarn::TableDimensions gamut = zeltarn::kDefaultGamut;
};

HwConfigPayload IgcBlock(const Panel& panel, const Target& target,
                         const zeltarn::TableDimensions& size);
HwConfigPayload GcBlock(const Panel& panel, const zeltarn::TableDimensions& size);
HwConfigPayload PccBlock(const Panel& panel, const Target& target);

}  // namespace tarn::reference
