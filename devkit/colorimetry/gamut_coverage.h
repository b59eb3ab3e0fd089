// SPDX-License-Identifier: Apache-2.0

// How much of one gamut another one has.
#pragma once

#include "devkit/reference/color/primaries.h"

namespace tarn::color {

// Shares from 0 to 1 of the area of the target's triangle, in either diagram.
struct Coverage {
  double xy = 0;       // CIE 1931
  double uniform = 0;  // CIE 1976 u'v'
};

// What of the target's triangle lies within the panel's. Whites play no part. Both
// must span a triangle.
Coverage GamutCoverage(const Primaries& panel, const Primaries& target);

}  // namespace tarn::color
