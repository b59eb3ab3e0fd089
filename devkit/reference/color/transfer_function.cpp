#include "devkit/reference/color/transfer_function.h"

#include <algorithm>
#include <cmath>

namespace tarn::color {
namespace {

double ShareOfRange(double luminance, const Luminance& panel) {
  return std::clamp((luminance - panel.black) / (panel.peak - panel.black), 0.0, 1.0);
}

// Linear between the measurements, from column `from` to column `to`.
double Interpolate(const std::vector<RampPoint>& ramp, double RampPoint::*from,
                   double RampPoint::*to, double value) {
  const auto after = std::find_if(ramp.begin() + 1, ramp.end() - 1,
                                  [&](const RampPoint& p) { return p.*from >= value; });
  const RampPoint& low = *(after - 1);
  const RampPoint& high = *after;
  const double share = (value - low.*from) / (high.*from - low.*from);
  return low.*to + share * (high.*to - low.*to);
}

}  // namespace

double ToLight(const TransferFunction& function, const Luminance& panel, double signal) {
  switch (function.curve) {
    case Curve::kLinear:
      return signal;
    case Curve::kGamma:
      return std::pow(signal, function.gamma);
    case Curve::kSrgb:
      return SrgbToLight(signal);
    case Curve::kRamp:
      return Interpolate(function.ramp, &RampPoint::signal, &RampPoint::light, signal);
    case Curve::kBt1886:
      return ShareOfRange(Bt1886ToLuminance(signal, panel), panel);
    case Curve::kHlg:
      return ShareOfRange(HlgToLuminance(signal, panel), panel);
    case Curve::kSt2084:
      return ShareOfRange(PqToLuminance(signal), panel);
  }
  return signal;
}

double ToSignal(const TransferFunction& function, double light) {
  switch (function.curve) {
    case Curve::kGamma:
      return std::pow(light, 1 / function.gamma);
    case Curve::kSrgb:
      return SrgbToSignal(light);
    case Curve::kRamp:
      return Interpolate(function.ramp, &RampPoint::light, &RampPoint::signal, light);
    default:
      return light;
  }
}

}  // namespace tarn::color
