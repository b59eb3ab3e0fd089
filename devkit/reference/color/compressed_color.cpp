#include "devkit/reference/color/compressed_color.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "devkit/reference/color/nearest_color.h"

namespace tarn::color {
namespace {

constexpr double kKnee = 0.9;
constexpr int kHalvings = 18;

constexpr std::array<Vec3, 6> kCorners = {
    {{1, 0, 0}, {1, 1, 0}, {0, 1, 0}, {0, 1, 1}, {0, 0, 1}, {1, 0, 1}}};

double HueOf(const Vec3& lab) { return std::atan2(lab[2], lab[1]); }

// How far `to` is round from `from`, from 0 up to a full turn.
double Turn(double from, double to) {
  constexpr double kFull = 2 * std::numbers::pi;
  return to - from - kFull * std::floor((to - from) / kFull);
}

bool InRange(const Vec3& light) {
  constexpr double kRounding = 1e-9;
  return std::all_of(light.begin(), light.end(),
                     [](double c) { return c >= -kRounding && c <= 1 + kRounding; });
}

Vec3 Between(const Vec3& a, const Vec3& b, double share) {
  return {std::lerp(a[0], b[0], share), std::lerp(a[1], b[1], share),
          std::lerp(a[2], b[2], share)};
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

Compressor::Compressor(const OkLab& space, const Mat3& content) : space_(space), content_(content) {
  for (size_t i = 0; i < kCorners.size(); ++i) {
    corner_hues_[i] = HueOf(space_.FromLight(kCorners[i]));
  }
}

// It lies on one of the six edges between the primaries and their mixtures.
double Compressor::CuspLightness(double hue) const {
  size_t edge = 0;
  for (size_t i = 1; i < corner_hues_.size(); ++i) {
    if (Turn(corner_hues_[i], hue) < Turn(corner_hues_[edge], hue)) edge = i;
  }
  const Vec3& from = kCorners[edge];
  const Vec3& to = kCorners[(edge + 1) % kCorners.size()];
  const double share = Last(1, [&](double s) {
    const double here = HueOf(space_.FromLight(Between(from, to, s)));
    return Turn(corner_hues_[edge], here) <= Turn(corner_hues_[edge], hue);
  });
  return space_.FromLight(Between(from, to, share))[0];
}

Vec3 Compressor::operator()(const Vec3& light) const {
  const Vec3 lab = space_.FromLight(light);
  constexpr double kGrey = 1e-4;
  if (std::hypot(lab[1], lab[2]) < kGrey) return light;
  const Vec3 grey = {CuspLightness(HueOf(lab)), 0, 0};
  // Distances from the grey, in that of the colour itself.
  const auto at = [&](double distance) { return space_.ToLight(Between(grey, lab, distance)); };
  constexpr double kFarthest = 16;
  const double panel = Last(kFarthest, [&](double d) { return InRange(at(d)); });
  const double knee = kKnee * panel;
  if (knee >= 1) return light;
  const double content =
      Last(kFarthest, [&](double d) { return InRange(Multiply(content_, at(d))); });
  if (content <= panel) return light;
  const Vec3 end = space_.FromLight(NearestColor(space_, at(content)));
  Vec3 result = space_.ToLight(
      Between(Between(grey, lab, knee), end, (1 - knee) / (content - knee)));
  for (double& component : result) component = std::clamp(component, 0.0, 1.0);
  return result;
}

}  // namespace tarn::color
