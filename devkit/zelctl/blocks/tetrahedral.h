// SPDX-License-Identifier: Apache-2.0

// Interpolation in a 3D table, along the edges from a cell's dark corner to its bright one.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "devkit/reference/color/matrix.h"

namespace zelctl {

// Where a component lies on its axis: between two nodes, and how far from the lower, 0 to 1.
struct GridPlace {
  size_t node = 0;
  double share = 0;
};

// The channels by their shares; of equal ones, in their order.
inline std::array<uint8_t, 3> LargestFirst(double red, double green, double blue) {
  using Order = std::array<uint8_t, 3>;
  if (red >= green) {
    if (green >= blue) return Order{0, 1, 2};
    return red >= blue ? Order{0, 2, 1} : Order{2, 0, 1};
  }
  if (red >= blue) return Order{1, 0, 2};
  return green >= blue ? Order{1, 2, 0} : Order{2, 1, 0};
}

// `corner(red, green, blue)` gives the three values of a node, an array of numbers.
template <typename Corner>
tarn::color::Vec3 InterpolateTetrahedral(const std::array<GridPlace, 3>& places, Corner corner) {
  const std::array<uint8_t, 3> order =
      LargestFirst(places[0].share, places[1].share, places[2].share);
  std::array<size_t, 3> node = {places[0].node, places[1].node, places[2].node};
  tarn::color::Vec3 result = {};
  double before = 1;
  for (size_t step = 0; step <= 3; ++step) {
    const double share = step < 3 ? places[order[step]].share : 0;
    const auto& values = corner(node[0], node[1], node[2]);
    for (size_t i = 0; i < 3; ++i) result[i] += (before - share) * static_cast<double>(values[i]);
    if (step < 3) ++node[order[step]];
    before = share;
  }
  return result;
}

}  // namespace zelctl
