#include "devkit/reference/color/standard_curves.h"

#include <algorithm>
#include <cmath>

namespace tarn::color {

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
  constexpr double kM1 = 2610.0 / 16384;
  constexpr double kM2 = 2523.0 / 4096 * 128;
  constexpr double kC1 = 3424.0 / 4096;
  constexpr double kC2 = 2413.0 / 4096 * 32;
  constexpr double kC3 = 2392.0 / 4096 * 32;
  const double root = std::pow(signal, 1 / kM2);
  return 10000 * std::pow(std::max(root - kC1, 0.0) / (kC2 - kC3 * root), 1 / kM1);
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
