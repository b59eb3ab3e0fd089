// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/import/ramp_shape.h"

#include <algorithm>
#include <cmath>
#include <functional>

#include "devkit/zelctl/errors.h"
#include "devkit/zelctl/import/line_text.h"

namespace zelctl {
namespace {

using tarn::color::Ramp;
using tarn::color::RampPoint;

// A description takes ramps that rise by more than 1e-9 of their range.
constexpr double kRise = 1.5e-9;

Ramp Normalized(Ramp ramp) {
  const double black = ramp.front().light;
  const double range = ramp.back().light - black;
  for (RampPoint& point : ramp) point.light = (point.light - black) / range;
  return ramp;
}

// The exponent of the domain that cubics run in.
constexpr double kDisplay = 2.2;

double Slope(const RampPoint& a, const RampPoint& b) {
  return (b.light - a.light) / (b.signal - a.signal);
}

// Slopes of the cubics at the points; no interval overshoots.
std::vector<double> Slopes(const Ramp& points) {
  const size_t last = points.size() - 1;
  std::vector<double> slopes(points.size());
  slopes[0] = Slope(points[0], points[1]);
  slopes[last] = Slope(points[last - 1], points[last]);
  for (size_t i = 1; i < last; ++i) {
    const double left = Slope(points[i - 1], points[i]);
    const double right = Slope(points[i], points[i + 1]);
    const double before = points[i].signal - points[i - 1].signal;
    const double after = points[i + 1].signal - points[i].signal;
    const double share = (before + 2 * after) / (3 * (before + after));
    slopes[i] = left * right > 0 ? left * right / (share * right + (1 - share) * left) : 0;
  }
  return slopes;
}

// The cubic from `a` to `b`, at `signal`.
double Cubic(const RampPoint& a, double slope_a, const RampPoint& b, double slope_b,
             double signal) {
  const double width = b.signal - a.signal;
  const double t = (signal - a.signal) / width;
  const double t2 = t * t;
  const double t3 = t2 * t;
  return (2 * t3 - 3 * t2 + 1) * a.light + (t3 - 2 * t2 + t) * width * slope_a +
         (-2 * t3 + 3 * t2) * b.light + (t3 - t2) * width * slope_b;
}

// Keeps a point where the cone of slopes that pass within `tolerance` of all points
// since the last one kept would close.
Ramp Within(const Ramp& ramp, double tolerance) {
  Ramp kept = {ramp.front()};
  double low = -HUGE_VAL;
  double high = HUGE_VAL;
  for (size_t i = 1; i < ramp.size(); ++i) {
    const double slope = Slope(kept.back(), ramp[i]);
    if (slope < low || slope > high) {
      kept.push_back(ramp[i - 1]);
      low = -HUGE_VAL;
      high = HUGE_VAL;
    }
    const double width = ramp[i].signal - kept.back().signal;
    low = std::max(low, (ramp[i].light - tolerance - kept.back().light) / width);
    high = std::min(high, (ramp[i].light + tolerance - kept.back().light) / width);
  }
  kept.push_back(ramp.back());
  return kept;
}

}  // namespace

Ramp Rising(const Ramp& raw, const std::string& what, std::vector<std::string>* source) {
  constexpr double kLargestShare = 0.02;
  const double range = raw.back().light - raw.front().light;
  if (!(range > 0)) throw UsageError(what + ": full signal is no brighter than signal 0");
  const auto rises = [&](const RampPoint& a, const RampPoint& b) {
    return b.light - a.light > kRise * range;
  };
  if (std::adjacent_find(raw.begin(), raw.end(), std::not_fn(rises)) == raw.end()) {
    return Normalized(raw);
  }
  const Ramp fit = IsotonicFit(raw, 2 * kRise * range);
  const tarn::color::Residual residual = LargestResidual(fit, raw);
  const double share = residual.light / range;
  if (share > kLargestShare) {
    throw UsageError(what + ": light falls by more than 2 % of its range, near signal " +
                     NumberText(residual.signal));
  }
  constexpr double kHalfStep = 0.5 / 65535;
  if (share > kHalfStep) {  // less is what equal neighbours need
    source->push_back(what + ": light falls with rising signal; evened out by at most " +
                      NumberText(100 * share) + " % of the range, at signal " +
                      NumberText(residual.signal));
  }
  return Normalized(fit);
}

Ramp Smoothed(const Ramp& measured) {
  Ramp root = measured;
  for (RampPoint& point : root) point.light = std::pow(point.light, 1 / kDisplay);
  const std::vector<double> slopes = Slopes(root);
  constexpr int kSteps = 255;
  constexpr double kNear = 0.25 / kSteps;
  Ramp smooth;
  size_t at = 0;
  for (int i = 0; i <= kSteps; ++i) {
    const double signal = static_cast<double>(i) / kSteps;
    for (; at < root.size() && root[at].signal < signal + kNear; ++at) {
      smooth.push_back(measured[at]);
    }
    if (signal - smooth.back().signal < kNear || at == root.size()) continue;
    const double light = Cubic(root[at - 1], slopes[at - 1], root[at], slopes[at], signal);
    smooth.push_back({signal, std::pow(light, kDisplay)});
  }
  std::vector<std::string> none;
  return Rising(smooth, "", &none);
}

Ramp Thinned(const Ramp& ramp, size_t most) {
  Ramp thinned = ramp;
  for (double tolerance = 0.5 / 65535; thinned.size() > most; tolerance *= 1.1) {
    thinned = Within(ramp, tolerance);
  }
  return thinned;
}

}  // namespace zelctl
