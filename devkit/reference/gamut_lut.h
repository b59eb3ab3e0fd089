// Inner layout of the "PostBlendGamut" table, GamutPostBlendConfig::lut_data.
// Shared by the mode parser, which fills it, and by whoever looks colours up.
//
// The table takes linear light in the mode's primaries, from IGC, to linear
// light in the same primaries that the panel can show, for the PCC block. Node
// (i, j, k) belongs to red i/16, green j/16 and blue k/16; between nodes the
// block interpolates trilinearly.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "convert/gamut_gamma_config.h"

namespace tarn::reference {

inline constexpr uint32_t kGamutSide = 17;
inline constexpr size_t kGamutNodes = size_t{kGamutSide} * kGamutSide * kGamutSide;

struct GamutLut {
  uint32_t side = kGamutSide;  // nodes along each of the three axes
  uint32_t bit_depth = 0;      // of the codes
  uint64_t reserved = 0;
  // Red, green and blue of each node, as codes: 0 stands for 0, the largest
  // code of the bit depth for 1. One hardware word each.
  std::array<std::array<uint64_t, 3>, kGamutNodes> nodes;
};
static_assert(sizeof(GamutLut) == sizeof(GamutPostBlendConfig::lut_data));

// Place of a node: blue varies fastest.
inline size_t NodeIndex(size_t red, size_t green, size_t blue) {
  return (red * kGamutSide + green) * kGamutSide + blue;
}

}  // namespace tarn::reference
