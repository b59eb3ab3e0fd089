// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/report/content_color.h"

#include <algorithm>
#include <cmath>

namespace zelctl {
namespace {

using tarn::color::Curve;
using tarn::color::HlgColor;
using tarn::color::HlgToLuminance;
using tarn::color::Vec3;
using tarn::reference::Panel;
using tarn::reference::Target;

// ITU-R BT.2408, table 1: HDR reference white.
constexpr double kHlgReferenceWhite = 0.75;
constexpr double kPqReferenceWhite = 203;  // cd/m2

// Where the rising `function` reaches `value` between 0 and 1, or the nearer end.
template <typename Function>
double Invert(Function function, double value) {
  double low = 0;
  double high = 1;
  if (value <= function(low)) return low;
  if (value >= function(high)) return high;
  while (true) {
    const double middle = (low + high) / 2;
    if (middle <= low || middle >= high) return middle;
    (function(middle) < value ? low : high) = middle;
  }
}

}  // namespace

ContentColor::ContentColor(const Panel& panel, const Target& target)
    : panel_(panel),
      target_(target),
      to_panel_(ConversionMatrix(target.primaries, panel.primaries, target.adaptation)),
      luminance_weights_(LuminanceWeights(target.primaries)) {}

double ContentColor::ReferenceWhite() const {
  if (target_.transfer.curve == Curve::kHlg) return kHlgReferenceWhite;
  if (target_.transfer.curve == Curve::kSt2084) return tarn::color::PqToSignal(kPqReferenceWhite);
  return 1;
}

bool ContentColor::IsAbsolute() const {
  return target_.transfer.curve == Curve::kHlg || target_.transfer.curve == Curve::kSt2084;
}

// PQ isn't clipped at the panel's peak here, as the blocks do: what lies beyond is asked
// for all the same.
double ContentColor::ChannelLight(size_t channel, double signal) const {
  const auto& transfer = target_.transfer;
  if (transfer.curve == Curve::kHlg) return HlgToLuminance(signal, panel_.luminance);
  if (transfer.curve != Curve::kSt2084) return ToLight(transfer, panel_.luminance, channel, signal);
  return transfer.content ? PqRolledOff(signal, *transfer.content, panel_.luminance)
                          : tarn::color::PqToLuminance(signal);
}

Vec3 ContentColor::Light(const Vec3& signal) const {
  Vec3 light;
  for (size_t i = 0; i < 3; ++i) light[i] = ChannelLight(i, signal[i]);
  if (target_.transfer.curve != Curve::kHlg) return light;
  return HlgColor(light, panel_.luminance.peak, luminance_weights_);
}

Vec3 ContentColor::PanelLight(const Vec3& signal) const {
  Vec3 light = tarn::color::Multiply(to_panel_, Light(signal));
  if (!IsAbsolute()) return light;
  const auto& [peak, black] = panel_.luminance;
  for (double& component : light) component = (component - black) / (peak - black);
  return light;
}

// Back through the OOTF of ITU-R BT.2100, table 5, to what each channel would have alone.
Vec3 ContentColor::EncodeHlg(const Vec3& light) const {
  const double peak = panel_.luminance.peak;
  const double gamma = tarn::color::HlgSystemGamma(peak);
  const double white = HlgToLuminance(kHlgReferenceWhite, panel_.luminance) / peak;
  double luminance = 0;
  for (size_t i = 0; i < 3; ++i) luminance += luminance_weights_[i] * white * light[i];
  Vec3 signal = {};
  if (luminance <= 0) return signal;
  for (size_t i = 0; i < 3; ++i) {
    const double scene = white * light[i] * std::pow(luminance, 1 / gamma - 1);
    signal[i] = Invert([this](double s) { return HlgToLuminance(s, panel_.luminance); },
                       peak * std::pow(scene, gamma));
  }
  return signal;
}

Vec3 ContentColor::Encode(const Vec3& light) const {
  Vec3 positive;
  for (size_t i = 0; i < 3; ++i) positive[i] = std::max(light[i], 0.0);
  if (target_.transfer.curve == Curve::kHlg) return EncodeHlg(positive);
  Vec3 signal;
  for (size_t i = 0; i < 3; ++i) {
    signal[i] = target_.transfer.curve == Curve::kSt2084
                    ? tarn::color::PqToSignal(kPqReferenceWhite * positive[i])
                    : Invert([this, i](double s) { return ChannelLight(i, s); }, positive[i]);
  }
  return signal;
}

}  // namespace zelctl
