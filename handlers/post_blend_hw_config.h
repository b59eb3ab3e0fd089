// SPDX-License-Identifier: Apache-2.0

// Dimensions of a hardware block's look-up table.
#pragma once

#include <cstdint>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "interface/record.h"

namespace zeltarn::layout {

// Named entries, each a name, a flag and a pair of signed 64-bit numbers. The
// plug-in passes them through. An element's layout is part of the contract: 48 bytes, the name at
// offset 0, the flag at 24, the pair at 32.
using HwAttribute = std::tuple<std::string, bool, std::pair<long, long>>;
using HwAttributes = std::vector<HwAttribute>;
ZEL_PIN(sizeof(long) == 8 && sizeof(HwAttribute) == 48 && alignof(HwAttribute) == 8,
        "HwAttribute changed");

// Record of kVcPostBlend{Gamut,Gamma,InverseGamma}HwConfig. The plug-in doesn't look at
// the `version` that a host gives. The parser gets the version of the block's typed
// record, 88 (gamma, inverse gamma) or 117936 (gamut).
template <typename Side>
struct PostBlendHwConfig {
  uint32_t version = 0;
  uint32_t num_of_entries = 0;  // gamma, inverse gamma: 1 to kMaxGammaEntries
  uint32_t bit_depth = 0;       // of one entry; not interpreted
  uint32_t padding = 0;
  HwAttributes attributes;
};

}  // namespace zeltarn::layout

namespace zeltarn {

// The longest table that the gamma and inverse-gamma blocks take.
inline constexpr uint32_t kMaxGammaEntries = 1024;

// Dimensions until the host sets others.
struct TableDimensions {
  uint32_t num_of_entries;
  uint32_t bit_depth;
};
inline constexpr TableDimensions kDefaultInverseGamma = {257, 12};
inline constexpr TableDimensions kDefaultGamma = {1024, 10};
inline constexpr TableDimensions kDefaultGamut = {17, 12};

}  // namespace zeltarn

ZEL_DECLARE_SIDES(PostBlendHwConfig)
ZEL_PIN_SIZE(PostBlendHwConfig, 40);
ZEL_PIN_ALIGNMENT(PostBlendHwConfig, 8);
ZEL_PIN_FIELD(PostBlendHwConfig, version, 0);
ZEL_PIN_FIELD(PostBlendHwConfig, num_of_entries, 4);
ZEL_PIN_FIELD(PostBlendHwConfig, bit_depth, 8);
ZEL_PIN_FIELD(PostBlendHwConfig, attributes, 16);
