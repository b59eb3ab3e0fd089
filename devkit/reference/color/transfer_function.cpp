// SPDX-License-Identifier: Apache-2.0
#include "devkit/reference/color/transfer_function.h"

#include <algorithm>
#include <cmath>

namespace tarn::color {
namespace {

double ShareOfRange(double luminance, const Luminance& panel) {
  return std::clamp((luminance - panel.black) / (panel.peak - panel.black), 0.0, 1.0);
}

}  // namespace

double ToLight(const TransferFunction& function, const Luminance& panel, size_t channel,
               double signal) {
  switch (function.curve) {
    case Curve::kLinear:
      return signal;
    case Curve::kGamma:
      return std::pow(signal, function.gamma);
    case Curve::kSrgb:
      return SrgbToLight(signal);
    case Curve::kRamp:
      return Interpolate(function.ramps[channel], &RampPoint::signal, &RampPoint::light, signal);
    case Curve::kBt1886:
      return ShareOfRange(Bt1886ToLuminance(signal, panel), panel);
    case Curve::kHlg:
      return ShareOfRange(HlgToLuminance(signal, panel), panel);
    case Curve::kSt2084:
      return ShareOfRange(
          function.content ? PqRolledOff(signal, *function.content, panel) : PqToLuminance(signal),
          panel);
  }
  return signal;
}

double ToSignal(const TransferFunction& function, size_t channel, double light) {
  switch (function.curve) {
    case Curve::kGamma:
      return std::pow(light, 1 / function.gamma);
    case Curve::kSrgb:
      return SrgbToSignal(light);
    case Curve::kRamp:
      return Interpolate(function.ramps[channel], &RampPoint::light, &RampPoint::signal, light);
    default:
      return light;
  }
}

}  // namespace tarn::color
