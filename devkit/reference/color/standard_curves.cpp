// SPDX-License-Identifier: Apache-2.0
#include "devkit/reference/color/standard_curves.h"

#include <algorithm>
#include <cmath>

namespace tarn::color {
namespace {

// ST 2084, section 4.
constexpr double kPqM1 = 2610.0 / 16384;
constexpr double kPqM2 = 2523.0 / 4096 * 128;
constexpr double kPqC1 = 3424.0 / 4096;
constexpr double kPqC2 = 2413.0 / 4096 * 32;
constexpr double kPqC3 = 2392.0 / 4096 * 32;

}  // namespace

double SrgbToLight(double signal) {
  return signal <= 0.04045 ? signal / 12.92 : std::pow((signal + 0.055) / 1.055, 2.4);
}

double SrgbToSignal(double light) {
  return light <= 0.0031308 ? light * 12.92 : 1.055 * std::pow(light, 1 / 2.4) - 0.055;
}

double Bt1886ToLuminance(double signal, const Luminance& display) {
  constexpr double kExponent = 2.4;
  const double white = std::pow(display.peak, 1 / kExponent);
  const double black = std::pow(display.black, 1 / kExponent);
  return std::pow((white - black) * signal + black, kExponent);
}

double PqToLuminance(double signal) {
  const double root = std::pow(signal, 1 / kPqM2);
  return 10000 * std::pow(std::max(root - kPqC1, 0.0) / (kPqC2 - kPqC3 * root), 1 / kPqM1);
}

double PqToSignal(double luminance) {
  const double power = std::pow(luminance / 10000, kPqM1);
  return std::pow((kPqC1 + kPqC2 * power) / (1 + kPqC3 * power), kPqM2);
}

double PqRolledOff(double signal, const Luminance& content, const Luminance& display) {
  const double low = PqToSignal(content.black);
  const double range = PqToSignal(content.peak) - low;
  const auto share = [&](double pq) { return (pq - low) / range; };
  const double max = std::min(share(PqToSignal(display.peak)), 1.0);
  const double min = std::max(share(PqToSignal(display.black)), 0.0);
  double rolled = std::clamp(share(signal), 0.0, 1.0);
  const double knee = 1.5 * max - 0.5;
  if (rolled > knee && knee < 1) {  // a Hermite spline up to the peak
    const double t = (rolled - knee) / (1 - knee);
    const double t2 = t * t;
    const double t3 = t2 * t;
    rolled =
        (2 * t3 - 3 * t2 + 1) * knee + (t3 - 2 * t2 + t) * (1 - knee) + (-2 * t3 + 3 * t2) * max;
  }
  rolled += min * std::pow(1 - rolled, 4);
  return PqToLuminance(std::clamp(rolled * range + low, 0.0, 1.0));
}

double HlgToScene(double signal) {
  constexpr double kA = 0.17883277;
  constexpr double kB = 1 - 4 * kA;
  constexpr double kC = 0.55991073;
  return signal <= 0.5 ? signal * signal / 3 : (std::exp((signal - kC) / kA) + kB) / 12;
}

double HlgSystemGamma(double peak) {
  constexpr double kNominalPeak = 1000;
  if (peak >= 400 && peak <= 2000) {
    return 1.2 + 0.42 * std::log10(peak / kNominalPeak);
  }
  return 1.2 * std::pow(1.111, std::log2(peak / kNominalPeak));
}

double HlgToLuminance(double signal, const Luminance& display) {
  const double gamma = HlgSystemGamma(display.peak);
  const double lift = std::sqrt(3 * std::pow(display.black / display.peak, 1 / gamma));
  const double scene = HlgToScene(std::max((1 - lift) * signal + lift, 0.0));
  return display.peak * std::pow(scene, gamma);
}

Vec3 HlgColor(const Vec3& components, double peak, const Vec3& weights) {
  const double gamma = HlgSystemGamma(peak);
  Vec3 scene;
  double luminance = 0;
  for (size_t i = 0; i < 3; ++i) {
    scene[i] = std::pow(components[i] / peak, 1 / gamma);
    luminance += weights[i] * scene[i];
  }
  if (luminance <= 0) return {0, 0, 0};
  const double factor = peak * std::pow(luminance, gamma - 1);
  return {factor * scene[0], factor * scene[1], factor * scene[2]};
}

}  // namespace tarn::color
