// SPDX-License-Identifier: Apache-2.0
#include "devkit/reference/color/ramp.h"

#include <algorithm>
#include <cmath>

namespace tarn::color {

double Interpolate(const Ramp& ramp, double RampPoint::*from, double RampPoint::*to, double value) {
  const auto after = std::find_if(ramp.begin() + 1, ramp.end() - 1,
                                  [&](const RampPoint& p) { return p.*from >= value; });
  const RampPoint& low = *(after - 1);
  const RampPoint& high = *after;
  const double share = (value - low.*from) / (high.*from - low.*from);
  return low.*to + share * (high.*to - low.*to);
}

Ramp IsotonicFit(const Ramp& measured, double rise) {
  struct Pool {
    double sum;
    size_t count;
    double Mean() const { return sum / static_cast<double>(count); }
  };
  std::vector<Pool> pools;
  for (size_t i = 0; i < measured.size(); ++i) {
    pools.push_back({measured[i].light - rise * static_cast<double>(i), 1});
    while (pools.size() > 1 && pools.rbegin()[1].Mean() >= pools.back().Mean()) {
      const Pool last = pools.back();
      pools.pop_back();
      pools.back().sum += last.sum;
      pools.back().count += last.count;
    }
  }
  Ramp fit;
  for (const Pool& pool : pools) {
    for (size_t i = 0; i < pool.count; ++i) {
      const size_t at = fit.size();
      fit.push_back({measured[at].signal, pool.Mean() + rise * static_cast<double>(at)});
    }
  }
  return fit;
}

Residual LargestResidual(const Ramp& fit, const Ramp& measured) {
  Residual largest;
  for (size_t i = 0; i < fit.size(); ++i) {
    const double light = std::abs(fit[i].light - measured[i].light);
    if (light > largest.light) largest = {measured[i].signal, light};
  }
  return largest;
}

}  // namespace tarn::color
