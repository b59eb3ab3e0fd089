#include "devkit/zelctl/report/content_color.h"

#include <algorithm>
#include <cmath>

namespace zelctl {
namespace {

using tarn::color::Curve;
using tarn::color::Luminance;
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

// ITU-R BT.2100, table 5: scene light of one component, with the display's black lift.
double HlgSceneOf(double signal, const Luminance& display) {
  const double exponent = 1 / tarn::color::HlgSystemGamma(display.peak);
  const double lift = std::sqrt(3 * std::pow(display.black / display.peak, exponent));
  return tarn::color::HlgToScene(std::max((1 - lift) * signal + lift, 0.0));
}

double Dot(const Vec3& a, const Vec3& b) { return a[0] * b[0] + a[1] * b[1] + a[2] * b[2]; }

Vec3 Scaled(const Vec3& v, double factor) { return {factor * v[0], factor * v[1], factor * v[2]}; }

}  // namespace

ContentColor::ContentColor(const Panel& panel, const Target& target)
    : panel_(panel),
      target_(target),
      to_panel_(ConversionMatrix(target.primaries, panel.primaries, target.adaptation)),
      luminance_weights_(LuminanceWeights(target.primaries)),
      reference_white_(1) {
  if (target.transfer.curve == Curve::kHlg) reference_white_ = kHlgReferenceWhite;
  if (target.transfer.curve == Curve::kSt2084) {
    reference_white_ = Invert(tarn::color::PqToLuminance, kPqReferenceWhite);
  }
}

bool ContentColor::IsAbsolute() const {
  return target_.transfer.curve == Curve::kHlg || target_.transfer.curve == Curve::kSt2084;
}

double ContentColor::ChannelLight(double signal) const {
  if (target_.transfer.curve == Curve::kHlg) return HlgSceneOf(signal, panel_.luminance);
  if (target_.transfer.curve == Curve::kSt2084) return tarn::color::PqToLuminance(signal);
  return ToLight(target_.transfer, panel_.luminance, signal);
}

double ContentColor::SignalOf(double channel_light) const {
  return Invert([this](double signal) { return ChannelLight(signal); }, channel_light);
}

Vec3 ContentColor::Light(const Vec3& signal) const {
  const Vec3 light = {ChannelLight(signal[0]), ChannelLight(signal[1]), ChannelLight(signal[2])};
  if (target_.transfer.curve != Curve::kHlg) return light;
  // The OOTF of ITU-R BT.2100, table 5: on the luminance of the colour as a whole.
  const double scene = Dot(luminance_weights_, light);
  if (scene <= 0) return {};
  const double gamma = tarn::color::HlgSystemGamma(panel_.luminance.peak);
  return Scaled(light, panel_.luminance.peak * std::pow(scene, gamma - 1));
}

Vec3 ContentColor::HlgScene(const Vec3& luminance) const {
  const double share = Dot(luminance_weights_, luminance) / panel_.luminance.peak;
  if (share <= 0) return {};
  const double gamma = tarn::color::HlgSystemGamma(panel_.luminance.peak);
  return Scaled(luminance, std::pow(share, 1 / gamma - 1) / panel_.luminance.peak);
}

Vec3 ContentColor::PanelLight(const Vec3& signal) const {
  Vec3 light = tarn::color::Multiply(to_panel_, Light(signal));
  if (!IsAbsolute()) return light;
  const auto& [peak, black] = panel_.luminance;
  for (double& component : light) component = (component - black) / (peak - black);
  return light;
}

bool ContentColor::IsReachable(const Vec3& panel_light) {
  constexpr double kTolerance = 1e-6;
  return std::all_of(panel_light.begin(), panel_light.end(),
                     [](double c) { return c >= -kTolerance && c <= 1 + kTolerance; });
}

Vec3 ContentColor::Encode(const Vec3& light) const {
  Vec3 channels;
  for (size_t i = 0; i < 3; ++i) channels[i] = std::max(light[i], 0.0);
  if (IsAbsolute()) {
    const Vec3 white = {reference_white_, reference_white_, reference_white_};
    channels = Scaled(channels, Light(white)[0]);
  }
  if (target_.transfer.curve == Curve::kHlg) channels = HlgScene(channels);
  return {SignalOf(channels[0]), SignalOf(channels[1]), SignalOf(channels[2])};
}

}  // namespace zelctl
