// SPDX-License-Identifier: Apache-2.0

// CIE 1976 L*a*b*, and the chromaticities of a tristimulus value.
//
// XYZ is of the CIE 1931 2 degree observer, in any unit: L*a*b* needs the white in
// the same one.
#pragma once

#include "devkit/reference/color/matrix.h"
#include "devkit/reference/color/primaries.h"

namespace tarn::color {

struct Lab {
  double l = 0;
  double a = 0;
  double b = 0;
};

// CIE 1976 u' and v'.
struct UniformChromaticity {
  double u = 0;
  double v = 0;
};

// CIE 15:2004, section 8.2.1.1. `white` is the specified white stimulus; none of its
// components is 0. No chromatic adaptation but the division by the white.
Lab XyzToLab(const Vec3& xyz, const Vec3& white);

// CIE 15:2004, annex D: the inverse.
Vec3 LabToXyz(const Lab& lab, const Vec3& white);

// CIE 15:2004, section 7.3. Light without any intensity has none: it gets {0, 0}.
Chromaticity ToChromaticity(const Vec3& xyz);

// CIE 15:2004, section 8.1.
UniformChromaticity ToUniform(const Chromaticity& xy);

// Distance of two colours in the u'v' diagram.
double UniformDistance(const Chromaticity& one, const Chromaticity& other);

}  // namespace tarn::color
