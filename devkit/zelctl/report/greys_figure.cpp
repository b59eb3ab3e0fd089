// SPDX-License-Identifier: Apache-2.0
#include <algorithm>

#include "devkit/zelctl/report/figures.h"
#include "devkit/zelctl/report/shown_number.h"
#include "devkit/zelctl/report/svg_plot.h"

namespace zelctl {

std::string GreysFigure(const ModeEvaluation& mode) {
  const auto greys = InSet(mode, PatchSet::kGreys);
  double highest = 1;
  bool has_unreachable = false;
  for (const PatchResult* grey : greys) {
    if (grey->reachable) highest = std::max(highest, grey->difference);
    has_unreachable = has_unreachable || !grey->reachable;
  }
  const std::string name = "33 greys: ΔE₀₀";
  SvgPlot plot(name, {"content code (8 bits)", 0, 256, 32}, AxisFromZero("ΔE₀₀", highest), 190);
  for (const PatchResult* grey : greys) {
    constexpr double kWidth = 5;
    plot.Bar(grey->reachable ? "shown" : "unreachable", grey->patch.code[0] - kWidth / 2, kWidth,
             grey->difference, grey->patch.name + ": " + Fixed(grey->difference, 2));
  }
  if (has_unreachable) plot.Legend({{"unreachable", "beyond the panel's range", LegendKey::kBar}});
  return Figure(name, plot.Finish(), kDifferenceSource);
}

}  // namespace zelctl
