// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <array>

#include "devkit/zelctl/report/figures.h"
#include "devkit/zelctl/report/shown_number.h"
#include "devkit/zelctl/report/svg_plot.h"

namespace zelctl {
namespace {

constexpr std::array<const char*, 4> kColors = {"white", "red", "green", "blue"};
constexpr std::array<const char*, 4> kStyles = {"ink", "red", "green", "blue"};

PlotPoint Uniform(const Appearance& seen) {
  const auto uv = ToUniform(tarn::color::ToChromaticity(seen.xyz));
  return {uv.u, uv.v};
}

std::vector<LegendEntry> Legend(LegendKey key) {
  std::vector<LegendEntry> legend;
  for (size_t i = 0; i < kColors.size(); ++i) legend.push_back({kStyles[i], kColors[i], key});
  return legend;
}

std::string StepNames(const ModeEvaluation& mode) {
  std::string names;
  for (size_t i = 0; i < mode.steps.size(); ++i) {
    names += (i == 0 ? "" : ", ") + std::to_string(i) + " " + mode.steps[i].label;
  }
  return names;
}

}  // namespace

std::string StepsDiagram(const ModeEvaluation& mode) {
  const std::string name = "Colour steps: where white and primaries go";
  SvgPlot plot(name, {"u′", 0, 0.7, 0.1}, {"v′", 0, 0.6, 0.1}, 257.1);
  for (size_t i = 0; i < kColors.size(); ++i) {
    std::vector<PlotPoint> way;
    for (const StepResult& step : mode.steps) {
      if (step.colors[i].xyz[1] <= 0) continue;  // black has no chromaticity
      way.push_back(Uniform(step.colors[i]));
      plot.Dot(kStyles[i], way.back(), step.label + ": " + kColors[i]);
    }
    if (way.empty()) continue;
    plot.Line(kStyles[i], way);
    plot.Cross(kStyles[i], way.front());
  }
  plot.Legend(Legend(LegendKey::kLine));
  return Figure(
      name, plot.Finish(),
      "Cross: the mode alone; dots: after " + StepNames(mode) + ". u′v′: CIE 15:2004, 8.1");
}

std::string StepsLuminance(const ModeEvaluation& mode) {
  double highest = 0;
  for (const StepResult& step : mode.steps) {
    for (const Appearance& color : step.colors) highest = std::max(highest, color.xyz[1]);
  }
  const std::string name = "Colour steps: luminance";
  const auto count = static_cast<double>(mode.steps.size());
  SvgPlot plot(name, {"step, as in the table", -0.5, count - 0.5, 0},
               AxisFromZero("luminance, cd/m²", highest), 190);
  for (size_t s = 0; s < mode.steps.size(); ++s) {
    for (size_t i = 0; i < kColors.size(); ++i) {
      constexpr double kWidth = 0.2;
      const double left = static_cast<double>(s) + kWidth * (static_cast<double>(i) - 2);
      const double luminance = mode.steps[s].colors[i].xyz[1];
      plot.Bar(kStyles[i], left, 0.9 * kWidth, luminance,
               mode.steps[s].label + ", " + kColors[i] + ": " + Significant(luminance) + " cd/m²");
    }
  }
  plot.Legend(Legend(LegendKey::kBar));
  return Figure(
      name, plot.Finish(),
      "From left to right: " + StepNames(mode) + ". Luminance: Y of CIE 15:2004, 7.1, in cd/m²");
}

}  // namespace zelctl
