// SPDX-License-Identifier: Apache-2.0
#include <algorithm>

#include "devkit/colorimetry/ciede2000.h"
#include "devkit/zelctl/report/figures.h"
#include "devkit/zelctl/report/shown_number.h"
#include "devkit/zelctl/report/svg_plot.h"

namespace zelctl {

std::string MeasuredFigure(const ModeEvaluation& mode, PatchSet set) {
  double highest = 1;
  const auto patches = InSet(mode, set);
  for (const PatchResult* result : patches) {
    if (!result->measured || !result->reachable) continue;
    highest = std::max({highest, Ciede2000(result->measured->lab, result->shown.lab),
                        Ciede2000(result->measured->lab, result->target.lab)});
  }
  const std::string name =
      set == PatchSet::kGreys ? "Measured greys: ΔE₀₀" : "Measured ColorChecker: ΔE₀₀";
  const auto count = static_cast<double>(patches.size());
  SvgPlot plot(name, {"patch, in the order of the table", 0.5, count + 0.5, 0},
               AxisFromZero("ΔE₀₀", highest), 190);
  double left = 0.6;
  for (const PatchResult* result : patches) {
    constexpr double kWidth = 0.4;
    if (result->measured && result->reachable) {
      const double from_target = Ciede2000(result->measured->lab, result->target.lab);
      const double from_shown = Ciede2000(result->measured->lab, result->shown.lab);
      plot.Bar("target", left, kWidth, from_target,
               result->patch.name + ", from the target: " + Fixed(from_target, 2));
      plot.Bar("shown", left + kWidth, kWidth, from_shown,
               result->patch.name + ", from the prediction: " + Fixed(from_shown, 2));
    }
    left += 1;
  }
  plot.Legend({{"target", "from the target", LegendKey::kBar},
               {"shown", "from the prediction", LegendKey::kBar}});
  return Figure(name, plot.Finish(), kDifferenceSource);
}

}  // namespace zelctl
