// SPDX-License-Identifier: Apache-2.0

// Inner layout of the "PostBlendGamut" table, GamutPostBlendConfig::lut_data.
// Shared by the mode parser, which fills it, and by whoever looks colours up.
//
// The table takes linear light in the mode's primaries, from IGC, to linear
// light in the same primaries, for the PCC block. Node (i, j, k) belongs to red
// (i/16)^2, green (j/16)^2 and blue (k/16)^2: squared, since eyes tell dark
// colours apart that even steps would put into one cell.
//
// Within a cell the block interpolates tetrahedrally, linear in light: what the
// nodes leave as it is stays as it is between them, and a neutral colour, which
// lies between two neutral nodes, stays neutral.
//
// What the PCC block makes of a node may lie outside the panel's range, and is
// then clipped after it: a node keeps how far, so that the colours between it
// and the panel's own stay where they are.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "convert/gamut_gamma_config.h"

namespace tarn::reference {

inline constexpr uint32_t kGamutSide = 17;
inline constexpr size_t kGamutNodes = size_t{kGamutSide} * kGamutSide * kGamutSide;
inline constexpr uint32_t kSquaredAxis = 2;

struct GamutLut {
  uint32_t side = kGamutSide;  // nodes along each of the three axes
  uint32_t bit_depth = 0;      // of the codes
  // Exponent of the nodes' light. A table with another one, the 0 of earlier
  // tables with even steps among them, is to be refused.
  uint32_t axis = kSquaredAxis;
  uint32_t reserved = 0;
  // Red, green and blue of each node, as codes: 0 stands for 0, the largest
  // code of the bit depth for 1. One hardware word each.
  std::array<std::array<uint64_t, 3>, kGamutNodes> nodes;
};
static_assert(sizeof(GamutLut) == sizeof(GamutPostBlendConfig::lut_data));

// Place of a node: blue varies fastest.
inline size_t NodeIndex(size_t red, size_t green, size_t blue) {
  return (red * kGamutSide + green) * kGamutSide + blue;
}

// Light that the nodes of a place from 0 to 16 along an axis belong to.
inline double NodeLight(size_t place) {
  const double share = static_cast<double>(place) / (kGamutSide - 1);
  return share * share;
}

}  // namespace tarn::reference
