// SPDX-License-Identifier: Apache-2.0

// The nearest colour that a device can show.
#pragma once

#include "devkit/reference/color/oklab.h"

namespace tarn::color {

// Light from 0 to 1 that differs least from `light` in OKLab, where differences
// of lightness, chroma and hue are weighted: a change of hue is seen first, a
// loss of chroma last. Weighted minimum colour difference, as in J. Morovic,
// Color Gamut Mapping, 2008, chapter 10.
Vec3 NearestColor(const OkLab& space, const Vec3& light);

}  // namespace tarn::color
