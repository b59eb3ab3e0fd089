// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/plot/gamut_diagram.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <sstream>
#include <tuple>
#include <utility>

#include "devkit/zelctl/plot/spectral_locus.h"

namespace zelctl {
namespace {

using tarn::color::Chromaticity;
using tarn::color::Primaries;
using tarn::color::Vec3;
using tarn::reference::Panel;

// Content signal at `position`, 0 to 6, of the way red, yellow, green, cyan,
// blue, magenta, red.
Vec3 OnHueCircle(double position) {
  const auto channel = [position](double centre) {
    const double distance = std::abs(std::remainder(position - centre, 6));
    return std::clamp(2 - distance, 0.0, 1.0);
  };
  return {channel(0), channel(2), channel(4)};
}

std::optional<Chromaticity> Shown(const Panel& panel, const Vec3& drive) {
  Vec3 light;
  for (size_t i = 0; i < 3; ++i) light[i] = ToLight(panel.transfer, panel.luminance, i, drive[i]);
  const Vec3 xyz = tarn::color::Multiply(RgbToXyz(panel.primaries), light);
  const double sum = xyz[0] + xyz[1] + xyz[2];
  if (sum <= 0) return std::nullopt;
  return Chromaticity{xyz[0] / sum, xyz[1] / sum};
}

// Not empty even without a point: gnuplot refuses data without a line.
void WriteData(const std::string& name, const std::vector<Chromaticity>& points,
               std::ostream& out) {
  out << '$' << name << " << EOD\n";
  for (const Chromaticity& point : points) out << point.x << ' ' << point.y << '\n';
  if (points.empty()) out << "NaN NaN\n";
  out << "EOD\n";
}

void WritePrimaries(const std::string& name, const Primaries& p, std::ostream& out) {
  WriteData(name, {p.red, p.green, p.blue, p.red}, out);
  WriteData(name + "_white", {p.white}, out);
}

// The locus, and beside some of its colours, on the outer side, their wavelength:
// no more than leaves room for the legend.
void WriteLocus(std::ostream& out) {
  constexpr std::array<int, 9> kLabelled = {460, 480, 500, 520, 540, 580, 600, 620, 700};
  constexpr double kDistance = 0.035;
  std::vector<Chromaticity> locus;
  std::ostringstream labels;
  for (const auto& [nanometres, xy] : kSpectralLocus) {
    locus.push_back(xy);
    if (std::find(kLabelled.begin(), kLabelled.end(), nanometres) == kLabelled.end()) continue;
    const double dx = xy.x - tarn::color::kD65.x;
    const double dy = xy.y - tarn::color::kD65.y;
    const double scale = kDistance / std::hypot(dx, dy);
    labels << xy.x + scale * dx << ' ' << xy.y + scale * dy << ' ' << nanometres << '\n';
  }
  locus.push_back(locus.front());  // the line of purples
  WriteData("locus", locus, out);
  out << "$wavelengths << EOD\n" << labels.str() << "EOD\n";
}

constexpr const char* kCommands = R"(
set title 'CIE 1931 chromaticity (2° observer; wavelengths in nm)'
set xlabel 'x'
set ylabel 'y'
set xrange [-0.07:0.8]
set yrange [-0.03:0.9]
set xtics 0, 0.1
set ytics 0, 0.1
set grid linecolor '#e4e4e4' linetype 1
set key top right Left reverse samplen 2.5 spacing 1.05
set style line 1 linecolor '#1a1a1a' linewidth 2
set style line 2 linecolor '#3d8bff' linewidth 1.6 dashtype (7,5)
set style line 3 linecolor '#f0a020' linewidth 4
set style fill transparent solid 0.22 noborder
plot $shown with filledcurves closed linecolor '#f0a020' notitle, \
  $locus with lines linecolor '#909090' notitle, \
  $wavelengths with labels textcolor '#707070' notitle, \
  $shown with lines linestyle 3 title 'shown', \
  $panel with lines linestyle 1 title 'panel', \
  $target with lines linestyle 2 title 'target', \
  $shown_white with points linestyle 3 linewidth 2.5 pointtype 6 pointsize 1.7 \
    title 'white shown', \
  $panel_white with points linestyle 1 pointtype 1 pointsize 1.5 title 'white of the panel', \
  $target_white with points linestyle 2 dashtype 1 pointtype 2 pointsize 1.2 \
    title 'white of the target'
)";

// Twice the area to the left of the way from `a` through `b` to `c`.
double Turn(const Chromaticity& a, const Chromaticity& b, const Chromaticity& c) {
  return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

// Corners of the convex hull, the first repeated as the last (Andrew's monotone
// chain: lower side from left to right, then back along the upper one).
std::vector<Chromaticity> ConvexHull(std::vector<Chromaticity> points) {
  std::sort(points.begin(), points.end(), [](const Chromaticity& a, const Chromaticity& b) {
    return std::tie(a.x, a.y) < std::tie(b.x, b.y);
  });
  std::vector<Chromaticity> hull;
  const auto add_side = [&hull](const auto& begin, const auto& end) {
    const size_t start = hull.size();
    for (auto point = begin; point != end; ++point) {
      while (hull.size() >= start + 2 && Turn(hull[hull.size() - 2], hull.back(), *point) <= 0) {
        hull.pop_back();
      }
      hull.push_back(*point);
    }
  };
  add_side(points.begin(), points.end());
  add_side(points.rbegin(), points.rend());
  return hull;
}

}  // namespace

GamutDiagram MakeGamutDiagram(const Panel& panel, const tarn::reference::Target& target,
                              const BlockPipeline& pipeline) {
  GamutDiagram diagram = {panel.primaries, target.primaries, {}, {}};
  constexpr int kSteps = 32;  // from each corner of the cube to the next
  std::vector<Chromaticity> points;
  // Full colours can be clipped, or lose saturation to gamut mapping; darker ones less so.
  for (const double level : {1.0, 0.75, 0.5}) {
    for (int i = 0; i < 6 * kSteps; ++i) {
      Vec3 signal = OnHueCircle(static_cast<double>(i) / kSteps);
      for (double& component : signal) component *= level;
      if (const auto point = Shown(panel, pipeline.Apply(signal))) points.push_back(*point);
    }
  }
  diagram.shown = ConvexHull(std::move(points));
  if (const auto white = Shown(panel, pipeline.Apply({1, 1, 1}))) diagram.shown_white = {*white};
  return diagram;
}

std::string GamutPlot(const GamutDiagram& diagram) {
  std::ostringstream out;
  WriteLocus(out);
  WritePrimaries("panel", diagram.panel, out);
  WritePrimaries("target", diagram.target, out);
  WriteData("shown", diagram.shown, out);
  WriteData("shown_white", diagram.shown_white, out);
  out << kCommands;
  return out.str();
}

}  // namespace zelctl
