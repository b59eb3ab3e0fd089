// SPDX-License-Identifier: Apache-2.0

// Transfer functions of the standards, from the signal (0 to 1) to light.
#pragma once

#include "devkit/reference/color/matrix.h"

namespace tarn::color {

// What a display emits, in cd/m2.
struct Luminance {
  double peak = 0;   // of white at full signal
  double black = 0;  // at signal 0
};

// IEC 61966-2-1, to relative light from 0 to 1, and its inverse.
double SrgbToLight(double signal);
double SrgbToSignal(double light);

// ITU-R BT.1886, annex 1, to cd/m2: exponent 2.4 and the display's own black.
double Bt1886ToLuminance(double signal, const Luminance& display);

// SMPTE ST 2084 (PQ), section 5, to cd/m2 from 0 to 10000.
double PqToLuminance(double signal);

// Its inverse, from cd/m2.
double PqToSignal(double luminance);

// ITU-R BT.2390, section 5.4.1, EETF: a signal of PQ, for a display of the range
// `content`, to the cd/m2 of a display of the range `display`. The top rolls off
// towards its peak, the bottom is lifted to its black; what the content's own
// range doesn't hold is clipped. Applied to each component alone.
double PqRolledOff(double signal, const Luminance& content, const Luminance& display);

// ITU-R BT.2100, table 5, inverse OETF of HLG: to scene light from 0 to 1.
double HlgToScene(double signal);

// ITU-R BT.2100, table 5, note 5f: exponent of HLG's OOTF for a peak in cd/m2.
double HlgSystemGamma(double peak);

// ITU-R BT.2100, table 5, EOTF of HLG with the display's black, to cd/m2. The
// OOTF is applied to one component alone, which is exact for neutral colours;
// HlgColor makes it exact for the others.
double HlgToLuminance(double signal, const Luminance& display);

// The three components of a colour, each from HlgToLuminance, with the OOTF of
// BT.2100, table 5, on the luminance of the colour instead, in cd/m2.
// `weights` are the luminances of red, green and blue in white.
Vec3 HlgColor(const Vec3& components, double peak, const Vec3& weights);

}  // namespace tarn::color
