// SPDX-License-Identifier: Apache-2.0

// Measured ramps.
#pragma once

#include <vector>

namespace tarn::color {

// One measurement: light, in any unit proportional to luminance, at a signal.
struct RampPoint {
  double signal = 0;
  double light = 0;
};

using Ramp = std::vector<RampPoint>;

// Linear between the measurements, from column `from`, which rises from point
// to point, to column `to`. `value` lies within the range of `from`.
double Interpolate(const Ramp& ramp, double RampPoint::*from, double RampPoint::*to, double value);

// The ramp nearest to the measurements whose light rises, by at least `rise` from
// point to point: isotonic least squares by pooling adjacent violators (R. E.
// Barlow et al., Statistical Inference under Order Restrictions, 1972, section
// 1.2).
Ramp IsotonicFit(const Ramp& measured, double rise);

// Where a fit is farthest from its measurements, and how far.
struct Residual {
  double signal = 0;
  double light = 0;
};
Residual LargestResidual(const Ramp& fit, const Ramp& measured);

}  // namespace tarn::color
