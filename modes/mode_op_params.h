// SPDX-License-Identifier: Apache-2.0

// The records of the two mode operations.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "convert/hw_config_payload.h"
#include "interface/record.h"
#include "modes/color_mode.h"

namespace zeltarn::layout {

inline constexpr size_t kAuxDataBytes = 2804;

// What to render. The asset names and the three aux fields belong to the host
// and the parser; the plug-in passes them through. With `= {}` all of it is
// blank. Without, aux_data is indeterminate: it is large, and mostly overwritten.
template <typename Side>
struct ModeRenderInputParams {
  static constexpr uint32_t kVersion = 2912;

  uint32_t version = kVersion;
  uint32_t padding0 = 0;
  std::vector<std::string> hw_assets;
  // Blank until filled. The host's label never reaches the parser: there it
  // stays empty.
  ColorMode<Side> mode = {0, 0, 0, 0, {}, {}};
  uint8_t aux_enable = 0;
  std::array<uint8_t, 3> padding1 = {};
  alignas(4) std::array<uint8_t, kAuxDataBytes> aux_data;
  uint32_t aux_word = 0;
  uint32_t padding2 = 0;
};

// The configurations of a mode, one entry per hardware block. A host may pass
// the same record again: entries are updated by block name.
template <typename Side>
struct HwConfigOutputParams {
  static constexpr uint32_t kVersion = 32;

  uint32_t version = kVersion;
  std::vector<HwConfigPayload<Side>> payloads;
};

}  // namespace zeltarn::layout

ZEL_DECLARE_SIDES(ModeRenderInputParams)
ZEL_PIN_SIZE(ModeRenderInputParams, tarn::ModeRenderInputParams::kVersion);
ZEL_PIN_ALIGNMENT(ModeRenderInputParams, 8);
ZEL_PIN_FIELD(ModeRenderInputParams, version, 0);
ZEL_PIN_FIELD(ModeRenderInputParams, hw_assets, 8);
ZEL_PIN_FIELD(ModeRenderInputParams, mode, 32);
ZEL_PIN_FIELD(ModeRenderInputParams, aux_enable, 96);
ZEL_PIN_FIELD(ModeRenderInputParams, aux_data, 100);
ZEL_PIN_FIELD(ModeRenderInputParams, aux_word, 2904);

ZEL_DECLARE_SIDES(HwConfigOutputParams)
ZEL_PIN_SIZE(HwConfigOutputParams, tarn::HwConfigOutputParams::kVersion);
ZEL_PIN_ALIGNMENT(HwConfigOutputParams, 8);
ZEL_PIN_FIELD(HwConfigOutputParams, version, 0);
ZEL_PIN_FIELD(HwConfigOutputParams, payloads, 8);
