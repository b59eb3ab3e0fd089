// SPDX-License-Identifier: Apache-2.0

// Interpolation in a 3D table, along the edges from a cell's dark corner to its bright one.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>

#include "devkit/reference/color/matrix.h"

namespace zelctl {

// Where a component lies on its axis: between two nodes, and how far from the lower, 0 to 1.
struct GridPlace {
  size_t node = 0;
  double share = 0;
};

// `corner(red, green, blue)` gives the three values of a node, an array of numbers.
template <typename Corner>
tarn::color::Vec3 InterpolateTetrahedral(const std::array<GridPlace, 3>& places, Corner corner) {
  std::array<size_t, 3> order = {0, 1, 2};  // the largest share first
  std::stable_sort(order.begin(), order.end(),
                   [&](size_t a, size_t b) { return places[a].share > places[b].share; });
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
