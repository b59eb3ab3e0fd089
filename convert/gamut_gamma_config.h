// SPDX-License-Identifier: Apache-2.0

// Typed records of the colour-volume blocks: "PostBlendGamut", "PostBlendIGC"
// and "PostBlendGC".
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "interface/record.h"

namespace zeltarn::layout {

// 3D look-up table of the gamut mapping. Mode parser and host agree on its
// inner layout.
template <typename Side>
struct alignas(8) GamutPostBlendConfig {
  static constexpr uint32_t kVersion = 117936;

  uint32_t version = kVersion;
  bool enable = false;
  std::array<uint8_t, 3> padding = {};
  std::array<uint8_t, 117928> lut_data;
};

// Look-up tables of inverse gamma (IGC) and gamma (GC), one list per channel.
// A list's length is the table's length, 1 to kMaxGammaEntries.
template <typename Side>
struct GammaPostBlendConfig {
  static constexpr uint32_t kVersion = 88;

  GammaPostBlendConfig() = default;

  // Lists are empty, each with room for `num_of_entries`.
  explicit GammaPostBlendConfig(uint32_t num_of_entries) {
    c0.reserve(num_of_entries);
    c1.reserve(num_of_entries);
    c2.reserve(num_of_entries);
  }

  uint32_t version = kVersion;
  bool enable = false;
  std::array<uint8_t, 3> padding0 = {};
  std::vector<uint32_t> c0;
  std::vector<uint32_t> c1;
  std::vector<uint32_t> c2;
  uint8_t aux_flag = 0;  // auxiliary pair: carried for "PostBlendIGC" only
  std::array<uint8_t, 3> padding1 = {};
  uint32_t aux_value = 0;
};

}  // namespace zeltarn::layout

ZEL_DECLARE_SIDES(GamutPostBlendConfig)
ZEL_PIN_SIZE(GamutPostBlendConfig, tarn::GamutPostBlendConfig::kVersion);
ZEL_PIN_ALIGNMENT(GamutPostBlendConfig, 8);
ZEL_PIN_FIELD(GamutPostBlendConfig, version, 0);
ZEL_PIN_FIELD(GamutPostBlendConfig, enable, 4);
ZEL_PIN_FIELD(GamutPostBlendConfig, lut_data, 8);

ZEL_DECLARE_SIDES(GammaPostBlendConfig)
ZEL_PIN_SIZE(GammaPostBlendConfig, tarn::GammaPostBlendConfig::kVersion);
ZEL_PIN_ALIGNMENT(GammaPostBlendConfig, 8);
ZEL_PIN_FIELD(GammaPostBlendConfig, version, 0);
ZEL_PIN_FIELD(GammaPostBlendConfig, enable, 4);
ZEL_PIN_FIELD(GammaPostBlendConfig, c0, 8);
ZEL_PIN_FIELD(GammaPostBlendConfig, c1, 32);
ZEL_PIN_FIELD(GammaPostBlendConfig, c2, 56);
ZEL_PIN_FIELD(GammaPostBlendConfig, aux_flag, 80);
ZEL_PIN_FIELD(GammaPostBlendConfig, aux_value, 84);
