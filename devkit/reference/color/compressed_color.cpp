// SPDX-License-Identifier: Apache-2.0
#include "devkit/reference/color/compressed_color.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "devkit/reference/color/nearest_color.h"

namespace tarn::color {
namespace {

constexpr double kKnee = 0.9;
constexpr int kHalvings = 16;

constexpr std::array<Vec3, 6> kCorners = {
    {{1, 0, 0}, {1, 1, 0}, {0, 1, 0}, {0, 1, 1}, {0, 0, 1}, {1, 0, 1}}};

double HueOf(const Vec3& lab) { return std::atan2(lab[2], lab[1]); }

bool InRange(const Vec3& light) {
  constexpr double kRounding = 1e-9;
  return std::all_of(light.begin(), light.end(),
                     [](double c) { return c >= -kRounding && c <= 1 + kRounding; });
}

Vec3 Between(const Vec3& a, const Vec3& b, double share) {
  return {std::lerp(a[0], b[0], share), std::lerp(a[1], b[1], share), std::lerp(a[2], b[2], share)};
}

// The largest number up to `high` that `holds`, which does up to some number.
template <typename Predicate>
double Last(double high, Predicate holds) {
  if (holds(high)) return high;
  double low = 0;
  for (int i = 0; i < kHalvings; ++i) {
    const double middle = (low + high) / 2;
    (holds(middle) ? low : high) = middle;
  }
  return low;
}

}  // namespace

// Most colourful are the mixtures of two primaries, or of their mixtures, next to each other.
Compressor::Compressor(const OkLab& space, const Mat3& content) : space_(space), content_(content) {
  constexpr int kSteps = 32;
  for (size_t i = 0; i < kCorners.size(); ++i) {
    const Vec3& next = kCorners[(i + 1) % kCorners.size()];
    for (int step = 0; step < kSteps; ++step) {
      const double share = static_cast<double>(step) / kSteps;
      const Vec3 lab = space_.FromLight(Between(kCorners[i], next, share));
      cusps_.push_back({HueOf(lab), lab[0]});
    }
  }
  std::sort(cusps_.begin(), cusps_.end(),
            [](const Cusp& a, const Cusp& b) { return a.hue < b.hue; });
  constexpr double kTurn = 2 * std::numbers::pi;
  const Cusp first = cusps_.front();
  const Cusp last = cusps_.back();
  cusps_.insert(cusps_.begin(), {last.hue - kTurn, last.lightness});
  cusps_.push_back({first.hue + kTurn, first.lightness});
}

double Compressor::CuspLightness(double hue) const {
  const auto after = std::upper_bound(cusps_.begin() + 1, cusps_.end() - 1, hue,
                                      [](double h, const Cusp& cusp) { return h < cusp.hue; });
  const Cusp& low = *(after - 1);
  const double width = after->hue - low.hue;
  const double share = width > 0 ? (hue - low.hue) / width : 0;
  return std::lerp(low.lightness, after->lightness, share);
}

Vec3 Compressor::operator()(const Vec3& light) const {
  const Vec3 lab = space_.FromLight(light);
  constexpr double kGrey = 1e-4;
  if (std::hypot(lab[1], lab[2]) < kGrey) return light;
  const Vec3 grey = {CuspLightness(HueOf(lab)), 0, 0};
  // Distances from the grey, in that of the colour itself.
  const auto at = [&](double distance) { return space_.ToLight(Between(grey, lab, distance)); };
  if (InRange(at(1 / kKnee))) return light;
  const double panel = Last(1 / kKnee, [&](double d) { return InRange(at(d)); });
  const double knee = kKnee * panel;
  constexpr double kFarthest = 16;
  const double content =
      Last(kFarthest, [&](double d) { return InRange(Multiply(content_, at(d))); });
  if (content <= panel) return light;
  const Vec3 end = space_.FromLight(NearestColor(space_, at(content)));
  Vec3 result =
      space_.ToLight(Between(Between(grey, lab, knee), end, (1 - knee) / (content - knee)));
  for (double& component : result) component = std::clamp(component, 0.0, 1.0);
  return result;
}

}  // namespace tarn::color
