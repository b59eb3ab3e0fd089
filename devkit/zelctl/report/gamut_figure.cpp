// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <array>

#include "devkit/zelctl/plot/spectral_locus.h"
#include "devkit/zelctl/report/figures.h"
#include "devkit/zelctl/report/shown_number.h"
#include "devkit/zelctl/report/svg_plot.h"

namespace zelctl {
namespace {

using tarn::color::Chromaticity;
using tarn::color::Primaries;

PlotPoint Place(Diagram diagram, const Chromaticity& xy) {
  if (diagram == Diagram::kXy) return {xy.x, xy.y};
  const auto uv = ToUniform(xy);
  return {uv.u, uv.v};
}

std::vector<PlotPoint> Triangle(Diagram diagram, const Primaries& p) {
  return {Place(diagram, p.red), Place(diagram, p.green), Place(diagram, p.blue),
          Place(diagram, p.red)};
}

void DrawLocus(Diagram diagram, SvgPlot* plot) {
  std::vector<PlotPoint> locus(kSpectralLocus.size());
  std::transform(kSpectralLocus.begin(), kSpectralLocus.end(), locus.begin(),
                 [diagram](const auto& color) { return Place(diagram, color.xy); });
  locus.push_back(locus.front());
  plot->Line("locus", locus);
}

void DrawWavelengths(Diagram diagram, SvgPlot* plot) {
  constexpr std::array<int, 7> kLabelled = {460, 480, 500, 520, 560, 600, 700};
  const PlotPoint middle = Place(diagram, tarn::color::kD65);
  for (const auto& [nanometres, xy] : kSpectralLocus) {
    const PlotPoint at = Place(diagram, xy);
    for (const int label : kLabelled) {
      constexpr double kInwards = 0.12;  // of the way to white, so that it stays in the frame
      if (label != nanometres) continue;
      plot->Text({at.x + kInwards * (middle.x - at.x), at.y + kInwards * (middle.y - at.y)},
                 std::to_string(label));
    }
  }
}

// Where the target's primaries go with its white: SMPTE RP 177, then Bradford.
Primaries Adapted(const Primaries& target, const Chromaticity& white) {
  const auto matrix =
      tarn::color::Multiply(BradfordAdaptation(target.white, white), RgbToXyz(target));
  const auto column = [&matrix](size_t i) {
    return tarn::color::ToChromaticity({matrix[0][i], matrix[1][i], matrix[2][i]});
  };
  return {column(0), column(1), column(2), white};
}

// Primaries, secondaries and white, where they were measured.
bool DrawMeasured(const ModeEvaluation& mode, Diagram diagram, SvgPlot* plot) {
  bool any = false;
  for (const PatchResult& result : mode.patches) {
    const bool corner =
        result.patch.set == PatchSet::kPrimaries || result.patch.set == PatchSet::kWhite;
    if (!corner || !result.measured || result.measured->xyz[1] <= 0) continue;
    const Chromaticity xy = tarn::color::ToChromaticity(result.measured->xyz);
    plot->Dot("measured", Place(diagram, xy), result.patch.name + ", measured");
    any = true;
  }
  return any;
}

}  // namespace

std::string GamutFigure(const ModeEvaluation& mode, Diagram diagram) {
  const bool xy = diagram == Diagram::kXy;
  const std::string name = xy ? "Gamut, CIE 1931 xy" : "Gamut, CIE 1976 u′v′";
  SvgPlot plot(name, xy ? PlotAxis{"x", 0, 0.8, 0.2} : PlotAxis{"u′", 0, 0.7, 0.1},
               xy ? PlotAxis{"y", 0, 0.9, 0.1} : PlotAxis{"v′", 0, 0.6, 0.1}, xy ? 337.5 : 257.1);
  DrawLocus(diagram, &plot);
  std::vector<PlotPoint> shown;
  for (const Chromaticity& point : mode.gamut.shown) shown.push_back(Place(diagram, point));
  plot.Area("shown-area", shown);
  plot.Line("shown", shown);
  plot.Line("panel", Triangle(diagram, mode.gamut.panel));
  plot.Line("target", Triangle(diagram, mode.gamut.target));
  std::vector<LegendEntry> legend = {{"panel", "panel"}, {"shown", "shown"}, {"target", "target"}};
  const Chromaticity& white = mode.gamut.panel.white;
  if (mode.target.adaptation && !(mode.gamut.target.white == white)) {
    plot.Line("adapted", Triangle(diagram, Adapted(mode.gamut.target, white)));
    legend.push_back({"adapted", "target, adapted"});
  }
  DrawWavelengths(diagram, &plot);  // over the outlines, below the marks
  plot.Cross("target", Place(diagram, mode.gamut.target.white));
  for (const Chromaticity& point : mode.gamut.shown_white) {
    plot.Dot("shown", Place(diagram, point), "white shown");
  }
  if (DrawMeasured(mode, diagram, &plot)) legend.push_back({"measured", "measured"});
  plot.Legend(legend);
  const double share = xy ? mode.coverage.xy : mode.coverage.uniform;
  return Figure(name, plot.Finish(),
                "The panel covers " + Fixed(100 * share, 1) +
                    " % of the target's area. Cross: the target's white; dot: white shown. "
                    "Locus in nm. " +
                    (xy ? "Chromaticity: CIE 15:2004, 7.3" : "u′v′: CIE 15:2004, 8.1") +
                    "; adaptation: Bradford, ICC.1, annex E");
}

}  // namespace zelctl
