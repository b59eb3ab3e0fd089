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

// A ramp whose light rises, as near to the measurements as one can be: isotonic
// least squares by pooling adjacent violators (R. E. Barlow et al., Statistical
// Inference under Order Restrictions, 1972, section 1.2). Points that have to
// share one light become a single one, at their mean signal or, at an end of
// the ramp, at that end's.
Ramp IsotonicFit(const Ramp& measured);

// Where a ramp is farthest from the measurements, and how far.
struct Residual {
  double signal = 0;
  double light = 0;
};
Residual LargestResidual(const Ramp& ramp, const Ramp& measured);

}  // namespace tarn::color
