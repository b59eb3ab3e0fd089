// SPDX-License-Identifier: Apache-2.0

// Typed records of the picture blocks: "PostBlendPa" (picture adjustment) and
// "PostBlendDE" (detail enhancement). The plug-in carries their values without
// interpreting them.
#pragma once

#include <array>
#include <cstdint>

#include "interface/record.h"

namespace zeltarn::layout {

template <typename Side>
struct PaSubParams {
  std::array<int32_t, 3> ints_a;
  std::array<float, 2> floats;
  std::array<int32_t, 7> ints_b;
  std::array<uint32_t, 3> triple0;
  std::array<uint32_t, 3> triple1;
  std::array<uint32_t, 3> triple2;
};

template <typename Side>
struct alignas(8) PaPostBlendConfig {
  static constexpr uint32_t kVersion = 9568;

  uint32_t version = kVersion;
  bool enable = false;
  std::array<uint8_t, 3> padding = {};
  std::array<int32_t, 4> i_params;
  std::array<float, 4> f_params;
  std::array<PaSubParams<Side>, 3> sub_params;
  std::array<uint8_t, 4> gap0 = {};  // the gaps are not carried
  std::array<uint8_t, 44> tail_params;
  std::array<uint8_t, 4> gap1 = {};
  std::array<uint8_t, 9224> tail_table;
};

template <typename Side>
struct alignas(8) DePostBlendConfig {
  static constexpr uint32_t kVersion = 48;

  uint32_t version = kVersion;
  bool enable = false;
  std::array<uint8_t, 3> padding = {};
  std::array<uint8_t, 40> params;
};

}  // namespace zeltarn::layout

ZEL_DECLARE_SIDES(PaSubParams)
ZEL_PIN_SIZE(PaSubParams, 84);
ZEL_PIN_ALIGNMENT(PaSubParams, 4);
ZEL_PIN_FIELD(PaSubParams, ints_a, 0);
ZEL_PIN_FIELD(PaSubParams, floats, 12);
ZEL_PIN_FIELD(PaSubParams, ints_b, 20);
ZEL_PIN_FIELD(PaSubParams, triple0, 48);
ZEL_PIN_FIELD(PaSubParams, triple1, 60);
ZEL_PIN_FIELD(PaSubParams, triple2, 72);

ZEL_DECLARE_SIDES(PaPostBlendConfig)
ZEL_PIN_SIZE(PaPostBlendConfig, tarn::PaPostBlendConfig::kVersion);
ZEL_PIN_ALIGNMENT(PaPostBlendConfig, 8);
ZEL_PIN_FIELD(PaPostBlendConfig, version, 0);
ZEL_PIN_FIELD(PaPostBlendConfig, enable, 4);
ZEL_PIN_FIELD(PaPostBlendConfig, i_params, 8);
ZEL_PIN_FIELD(PaPostBlendConfig, f_params, 24);
ZEL_PIN_FIELD(PaPostBlendConfig, sub_params, 40);
ZEL_PIN_FIELD(PaPostBlendConfig, tail_params, 296);
ZEL_PIN_FIELD(PaPostBlendConfig, tail_table, 344);

ZEL_DECLARE_SIDES(DePostBlendConfig)
ZEL_PIN_SIZE(DePostBlendConfig, tarn::DePostBlendConfig::kVersion);
ZEL_PIN_ALIGNMENT(DePostBlendConfig, 8);
ZEL_PIN_FIELD(DePostBlendConfig, version, 0);
ZEL_PIN_FIELD(DePostBlendConfig, enable, 4);
ZEL_PIN_FIELD(DePostBlendConfig, params, 8);
