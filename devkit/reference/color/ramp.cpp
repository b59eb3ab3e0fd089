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

Ramp IsotonicFit(const Ramp& measured) {
  struct Pool {
    RampPoint sum;
    double count;
    double Light() const { return sum.light / count; }
  };
  std::vector<Pool> pools;
  for (const RampPoint& point : measured) {
    pools.push_back({point, 1});
    while (pools.size() > 1 && pools.rbegin()[1].Light() >= pools.back().Light()) {
      const Pool last = pools.back();
      pools.pop_back();
      pools.back().sum.signal += last.sum.signal;
      pools.back().sum.light += last.sum.light;
      pools.back().count += last.count;
    }
  }
  Ramp fit;
  for (const Pool& pool : pools) fit.push_back({pool.sum.signal / pool.count, pool.Light()});
  fit.front().signal = measured.front().signal;
  fit.back().signal = measured.back().signal;
  return fit;
}

Residual LargestResidual(const Ramp& ramp, const Ramp& measured) {
  Residual largest;
  for (const auto& [signal, light] : measured) {
    const double fitted = Interpolate(ramp, &RampPoint::signal, &RampPoint::light, signal);
    const double residual = std::abs(fitted - light);
    if (residual > largest.light) largest = {signal, residual};
  }
  return largest;
}

}  // namespace tarn::color
