// SPDX-License-Identifier: Apache-2.0

// The CIEDE2000 colour difference.
#pragma once

#include "devkit/colorimetry/lab.h"

namespace tarn::color {

// ISO/CIE 11664-6 (CIE 142-2001) with the weights kL = kC = kH = 1, in the form of
// Sharma, Wu, Dalal, "The CIEDE2000 Color-Difference Formula: Implementation Notes,
// Supplementary Test Data, and Mathematical Observations", Color Research and
// Application 30 (2005), equations 2 to 22. Symmetric; 0 for equal colours. About 1
// is just noticeable side by side.
double Ciede2000(const Lab& one, const Lab& other);

// Of two tristimulus values, seen under `white`.
double Ciede2000(const Vec3& one, const Vec3& other, const Vec3& white);

}  // namespace tarn::color
