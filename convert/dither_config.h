// SPDX-License-Identifier: Apache-2.0

// Typed records of "PostBlendDither" and "PostBlendPaDither" (the dither stage
// of picture adjustment).
#pragma once

#include <array>
#include <cstdint>

#include "interface/record.h"

namespace zeltarn::layout {

template <typename Side>
struct alignas(8) DitherPostBlendConfig {
  static constexpr uint32_t kVersion = 96;

  uint32_t version = kVersion;
  bool enable = false;
  std::array<uint8_t, 3> padding = {};
  std::array<uint8_t, 88> params;  // parser and host agree on the inner layout
};

// As large as the gamma record: only the block name tells the two apart.
template <typename Side>
struct alignas(8) PaDitherPostBlendConfig {
  static constexpr uint32_t kVersion = 88;

  uint32_t version = kVersion;
  bool enable = false;
  std::array<uint8_t, 3> padding = {};
  std::array<uint32_t, 20> words;
};

}  // namespace zeltarn::layout

ZEL_DECLARE_SIDES(DitherPostBlendConfig)
ZEL_PIN_SIZE(DitherPostBlendConfig, tarn::DitherPostBlendConfig::kVersion);
ZEL_PIN_ALIGNMENT(DitherPostBlendConfig, 8);
ZEL_PIN_FIELD(DitherPostBlendConfig, version, 0);
ZEL_PIN_FIELD(DitherPostBlendConfig, enable, 4);
ZEL_PIN_FIELD(DitherPostBlendConfig, params, 8);

ZEL_DECLARE_SIDES(PaDitherPostBlendConfig)
ZEL_PIN_SIZE(PaDitherPostBlendConfig, tarn::PaDitherPostBlendConfig::kVersion);
ZEL_PIN_ALIGNMENT(PaDitherPostBlendConfig, 8);
ZEL_PIN_FIELD(PaDitherPostBlendConfig, version, 0);
ZEL_PIN_FIELD(PaDitherPostBlendConfig, enable, 4);
ZEL_PIN_FIELD(PaDitherPostBlendConfig, words, 8);
