// SPDX-License-Identifier: Apache-2.0

// A panel and the modes that it offers, as its description states them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "convert/hw_config_payload.h"
#include "devkit/reference/color/primaries.h"
#include "devkit/reference/color/transfer_function.h"
#include "modes/color_mode.h"

namespace tarn::reference {

// Block configurations, ready to be handed out. Handing one out shares its
// record, which nobody writes to.
using Blocks = std::vector<HwConfigPayload>;

enum class GamutMapping {
  kNone,        // what the panel can't show is clipped after the PCC block
  kDesaturate,  // it is drawn towards the grey of its own luminance
  kNearest,     // it becomes the nearest colour that the panel has
  kCompress,    // it is drawn in along its hue, with what lies near the boundary
};

// How content of a mode is to be understood.
struct Target {
  color::Primaries primaries;
  color::TransferFunction transfer;
  bool adaptation = true;
  GamutMapping gamut_mapping = GamutMapping::kNone;
};

struct Mode {
  ColorMode id;
  Target target;
  Blocks blocks;     // those that are stated, not computed
  Blocks sw_assets;  // answer to kZelModeSwAssets
};

struct Panel {
  std::string name;  // for people
  color::Primaries primaries;
  color::Luminance luminance;
  color::TransferFunction transfer;
  uint32_t bit_depth = 0;
  Blocks dither;  // answer to kZelPbDitherHwConfig
  std::vector<Mode> modes;
  std::vector<std::string> notes;  // what was done to measurements, a line each, with its place
};

}  // namespace tarn::reference
