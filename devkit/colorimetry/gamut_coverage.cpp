// SPDX-License-Identifier: Apache-2.0
#include "devkit/colorimetry/gamut_coverage.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "devkit/colorimetry/lab.h"

namespace tarn::color {
namespace {

struct Point {
  double x;
  double y;
};
using Polygon = std::vector<Point>;

// Twice the area to the left of the way from `a` through `b` to `c`.
double Turn(const Point& a, const Point& b, const Point& c) {
  return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

// Twice the area (the shoelace formula).
double Area(const Polygon& polygon) {
  double area = 0;
  for (size_t i = 2; i < polygon.size(); ++i) area += Turn(polygon[0], polygon[i - 1], polygon[i]);
  return std::abs(area);
}

// What of `polygon` lies left of the line from `a` to `b`.
Polygon LeftOf(const Point& a, const Point& b, const Polygon& polygon) {
  Polygon kept;
  for (size_t i = 0; i < polygon.size(); ++i) {
    const Point& from = polygon[i];
    const Point& to = polygon[(i + 1) % polygon.size()];
    const double before = Turn(a, b, from);
    const double after = Turn(a, b, to);
    if (before >= 0) kept.push_back(from);
    if ((before > 0 && after < 0) || (before < 0 && after > 0)) {
      const double share = before / (before - after);
      kept.push_back({from.x + share * (to.x - from.x), from.y + share * (to.y - from.y)});
    }
  }
  return kept;
}

// Clips the target at each side of the panel's triangle (Sutherland, Hodgman).
double Share(Polygon panel, const Polygon& target) {
  if (Turn(panel[0], panel[1], panel[2]) < 0) std::swap(panel[1], panel[2]);
  Polygon common = target;
  for (size_t i = 0; i < 3; ++i) common = LeftOf(panel[i], panel[(i + 1) % 3], common);
  return Area(common) / Area(target);
}

Polygon InXy(const Primaries& p) {
  return {{p.red.x, p.red.y}, {p.green.x, p.green.y}, {p.blue.x, p.blue.y}};
}

Polygon InUniform(const Primaries& p) {
  Polygon polygon;
  for (const Chromaticity& corner : {p.red, p.green, p.blue}) {
    const UniformChromaticity uv = ToUniform(corner);
    polygon.push_back({uv.u, uv.v});
  }
  return polygon;
}

}  // namespace

Coverage GamutCoverage(const Primaries& panel, const Primaries& target) {
  return {Share(InXy(panel), InXy(target)), Share(InUniform(panel), InUniform(target))};
}

}  // namespace tarn::color
