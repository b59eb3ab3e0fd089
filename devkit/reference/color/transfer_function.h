// The transfer function of a panel or of a mode, whichever form it has.
//
// Light is relative to the panel's range: 0 is its black, 1 its peak.
#pragma once

#include <vector>

#include "devkit/reference/color/standard_curves.h"

namespace tarn::color {

enum class Curve { kLinear, kGamma, kSrgb, kRamp, kBt1886, kHlg, kSt2084 };

// One measurement of a grey ramp.
struct RampPoint {
  double signal = 0;
  double light = 0;
};

struct TransferFunction {
  Curve curve = Curve::kLinear;
  double gamma = 1;             // exponent of kGamma
  std::vector<RampPoint> ramp;  // of kRamp: both columns rise from 0 to 1
};

// Light for a signal from 0 to 1, shown on a panel of luminance `panel`. What
// the panel can't show is clipped to 0 or 1.
double ToLight(const TransferFunction& function, const Luminance& panel, double signal);

// Inverse of ToLight for curves that don't depend on the panel's luminance:
// linear, gamma, sRGB and measured ramps.
double ToSignal(const TransferFunction& function, double light);

}  // namespace tarn::color
