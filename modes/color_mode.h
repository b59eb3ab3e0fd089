// SPDX-License-Identifier: Apache-2.0

// The colour modes that a panel offers.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "interface/record.h"

namespace zeltarn::layout {

// One colour mode. Host and mode parser agree on ids, asset names and label; the
// plug-in passes them through.
template <typename Side>
struct ColorMode {
  uint32_t gamut = 255;     // colour-gamut id
  uint32_t gamma = 255;     // transfer-function id
  uint32_t intent = 65535;  // render-intent id
  uint32_t padding = 0;
  std::vector<std::string> hw_assets;  // asset names that belong to the mode
  std::string label = "standard";      // text tag
};

// Its envelope has len 32; its version is not its size.
template <typename Side>
struct ColorModeList {
  static constexpr uint32_t kVersion = 96;

  uint32_t version = kVersion;
  std::vector<ColorMode<Side>> modes;  // in the order the parser delivered them
};

}  // namespace zeltarn::layout

ZEL_DECLARE_SIDES(ColorMode)
ZEL_PIN_SIZE(ColorMode, 64);
ZEL_PIN_ALIGNMENT(ColorMode, 8);
ZEL_PIN_FIELD(ColorMode, gamut, 0);
ZEL_PIN_FIELD(ColorMode, gamma, 4);
ZEL_PIN_FIELD(ColorMode, intent, 8);
ZEL_PIN_FIELD(ColorMode, hw_assets, 16);
ZEL_PIN_FIELD(ColorMode, label, 40);

ZEL_DECLARE_SIDES(ColorModeList)
ZEL_PIN_SIZE(ColorModeList, 32);
ZEL_PIN_ALIGNMENT(ColorModeList, 8);
ZEL_PIN_FIELD(ColorModeList, version, 0);
ZEL_PIN_FIELD(ColorModeList, modes, 8);
