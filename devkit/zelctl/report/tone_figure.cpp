// SPDX-License-Identifier: Apache-2.0
#include <algorithm>

#include "devkit/zelctl/report/figures.h"
#include "devkit/zelctl/report/shown_number.h"
#include "devkit/zelctl/report/svg_plot.h"
#include "devkit/zelctl/report/target_text.h"

namespace zelctl {

std::string ToneFigure(const Report& report, const ModeEvaluation& mode, int last) {
  std::vector<PlotPoint> target;
  std::vector<PlotPoint> shown;
  double highest = 0;
  for (const TonePoint& point : mode.tone) {
    if (point.code > last) break;
    const double code = point.code;
    target.push_back({code, point.target});
    shown.push_back({code, point.shown});
    highest = std::max({highest, point.target, point.shown});
  }
  // What a target asks for beyond the panel's peak would flatten the rest.
  constexpr double kRoom = 1.1;
  highest = std::min(highest, kRoom * report.panel.luminance.peak);
  const bool whole = last == kMaxContentCode;
  const std::string name = whole ? "Tone curve" : "Tone curve, dark end";
  const double tick = whole ? 32 : 4;
  const PlotAxis codes = {"neutral content code (8 bits)", 0, whole ? 256.0 : last, tick};
  SvgPlot plot(name, codes, AxisFromZero("luminance, cd/m²", highest), 190);
  plot.Line("shown", shown);
  plot.Line("target", target);
  std::vector<LegendEntry> legend = {{"target", "target"}, {"shown", "shown"}};
  if (report.measured) {
    for (const PatchResult* grey : InSet(mode, PatchSet::kGreys)) {
      if (!grey->measured || grey->patch.code[0] > last) continue;
      plot.Dot("measured", {static_cast<double>(grey->patch.code[0]), grey->measured->xyz[1]},
               grey->patch.name + ": " + Significant(grey->measured->xyz[1]) + " cd/m²");
    }
    legend.push_back({"measured", "measured"});
  }
  plot.Legend(legend);
  return Figure(name, plot.Finish(),
                "Target: " + TransferText(mode.target.transfer) + ", " +
                    TransferSource(mode.target.transfer) +
                    "; on the panel's black and peak. Shown: the blocks' output of 8 bits, through "
                    "the panel's description");
}

}  // namespace zelctl
