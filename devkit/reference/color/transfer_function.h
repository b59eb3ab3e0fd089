// SPDX-License-Identifier: Apache-2.0

// The transfer function of a panel or of a mode, whichever form it has.
//
// Light is relative to the panel's range: 0 is its black, 1 its peak.
#pragma once

#include <array>
#include <cstddef>
#include <optional>

#include "devkit/reference/color/ramp.h"
#include "devkit/reference/color/standard_curves.h"

namespace tarn::color {

enum class Curve { kLinear, kGamma, kSrgb, kRamp, kBt1886, kHlg, kSt2084 };

struct TransferFunction {
  Curve curve = Curve::kLinear;
  double gamma = 1;                // exponent of kGamma
  std::array<Ramp, 3> ramps = {};  // of kRamp, per channel: both columns rise from 0 to 1
  // Of kSt2084: the display that the content was made on, from whose range it
  // rolls off. Without it, what exceeds the panel's peak is clipped.
  std::optional<Luminance> content = {};
};

// Light for a signal from 0 to 1, shown on a panel of luminance `panel`. What
// the panel can't show is clipped to 0 or 1.
// The channels, red, green and blue, differ in kRamp only.
double ToLight(const TransferFunction& function, const Luminance& panel, size_t channel,
               double signal);

// Inverse of ToLight for curves that don't depend on the panel's luminance:
// linear, gamma, sRGB and measured ramps.
double ToSignal(const TransferFunction& function, size_t channel, double light);

}  // namespace tarn::color
