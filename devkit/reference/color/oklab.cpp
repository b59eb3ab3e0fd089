// SPDX-License-Identifier: Apache-2.0
#include "devkit/reference/color/oklab.h"

#include <algorithm>
#include <cmath>

namespace tarn::color {
namespace {

constexpr Mat3 kXyzToLms = {{{0.8189330101, 0.3618667424, -0.1288597137},
                             {0.0329845436, 0.9293118715, 0.0361456387},
                             {0.0482003018, 0.2643662691, 0.6338517070}}};
constexpr Mat3 kRootsToLab = {{{0.2104542553, 0.7936177850, -0.0040720468},
                               {1.9779984951, -2.4285922050, 0.4505937099},
                               {0.0259040371, 0.7827717662, -0.8086757660}}};

}  // namespace

OkLab::OkLab(const Primaries& device)
    : to_lms_(
          Multiply(kXyzToLms, Multiply(BradfordAdaptation(device.white, kD65), RgbToXyz(device)))),
      from_lms_(Inverse(to_lms_)) {}

Vec3 OkLab::FromLight(const Vec3& light) const {
  Vec3 roots = Multiply(to_lms_, light);
  for (double& component : roots) component = std::cbrt(component);
  return Multiply(kRootsToLab, roots);
}

Vec3 OkLab::ToLight(const Vec3& lab) const {
  static const Mat3 kLabToRoots = Inverse(kRootsToLab);
  Vec3 lms = Multiply(kLabToRoots, lab);
  for (double& component : lms) component = component * component * component;
  return Multiply(from_lms_, lms);
}

Mat3 OkLab::Slope(const Vec3& light) const {
  constexpr double kDarkest = 1e-6;  // where the root is too steep to be of use
  Vec3 slopes = Multiply(to_lms_, light);
  for (double& component : slopes) {
    const double root = std::cbrt(std::max(std::abs(component), kDarkest));
    component = 1 / (3 * root * root);
  }
  return Multiply(kRootsToLab, Multiply(Diagonal(slopes), to_lms_));
}

}  // namespace tarn::color
