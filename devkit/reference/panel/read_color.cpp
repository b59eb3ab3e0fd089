#include "devkit/reference/panel/read_color.h"

#include <algorithm>
#include <map>

namespace tarn::reference {
namespace {

using color::Chromaticity;
using color::Curve;
using color::Primaries;
using color::TransferFunction;

constexpr const char* kPanelItself = "panel";

// The entry that a text names.
template <typename T>
T Named(const JsonValue& value, const std::map<std::string, T>& names) {
  const auto found = names.find(value.Text());
  if (found != names.end()) return found->second;
  std::string known;
  for (const auto& [name, unused] : names) known += (known.empty() ? "" : ", ") + name;
  value.Refuse("expected one of " + known);
}

// Whether the value is a name. Where it is not, it must be what else may stand
// in the name's place.
bool IsName(const JsonValue& value, bool is_other, const char* other) {
  if (!value.IsString() && !is_other) value.Refuse(std::string("expected a name or ") + other);
  return value.IsString();
}

Chromaticity ReadChromaticity(const JsonValue& value, Range x, Range y) {
  const std::vector<JsonValue> xy = value.Elements(2, 2);
  return {xy[0].Number(x), xy[1].Number(y)};
}

Chromaticity ReadPrimary(const JsonValue& value) {
  // Near y = 0 a colour has no luminance, and XYZ no bound.
  const Chromaticity c = ReadChromaticity(value, {0, 1}, {0.001, 1});
  if (c.x + c.y > 1) value.Refuse("x + y must not exceed 1");
  return c;
}

// The bounds hold every white in use, and keep cone responses, by which the
// adaptation divides, well above zero.
Chromaticity ReadWhite(const JsonValue& value) {
  return ReadChromaticity(value, {0.2, 0.45}, {0.25, 0.45});
}

Primaries ReadPrimaries(const JsonValue& value) {
  ObjectReader in(value);
  const Primaries p = {.red = ReadPrimary(in.Need("red")),
                       .green = ReadPrimary(in.Need("green")),
                       .blue = ReadPrimary(in.Need("blue")),
                       .white = {}};
  in.Finish();
  constexpr double kSmallestArea = 0.01;
  if (TriangleArea(p) < kSmallestArea) value.Refuse("red, green and blue lie on one line");
  return p;
}

void CheckWhite(const Primaries& p, const JsonValue& value) {
  // Towards the edge a primary's share vanishes, and light in it grows without bound.
  constexpr double kSmallestWeight = 0.001;
  const color::Vec3 weights = LuminanceWeights(p);
  if (*std::min_element(weights.begin(), weights.end()) < kSmallestWeight) {
    value.Refuse("white lies outside the triangle of the primaries, or too near to its edge");
  }
}

std::vector<color::RampPoint> ReadRamp(const JsonValue& value) {
  std::vector<color::RampPoint> ramp;
  const std::vector<JsonValue> elements = value.Elements(2, 1024);
  for (const JsonValue& element : elements) {
    const std::vector<JsonValue> pair = element.Elements(2, 2);
    ramp.push_back({pair[0].Number({0, 1}), pair[1].Number({0, 10000})});
  }
  if (ramp.front().signal != 0 || ramp.back().signal != 1) {
    value.Refuse("signals must reach from 0 to 1");
  }
  const double black = ramp.front().light;
  const double range = ramp.back().light - black;
  constexpr double kSmallestRise = 1e-9;  // smaller ones could vanish in the division below
  for (size_t i = 1; i < ramp.size(); ++i) {
    if (ramp[i].signal - ramp[i - 1].signal <= kSmallestRise ||
        ramp[i].light - ramp[i - 1].light <= kSmallestRise * range) {
      elements[i].Refuse("signal and light must rise, by more than 1e-9 of their range");
    }
  }
  for (color::RampPoint& point : ramp) point.light = (point.light - black) / range;
  return ramp;
}

// An object with the one key "gamma" or "ramp".
TransferFunction ReadOwnCurve(const JsonValue& value) {
  ObjectReader in(value);
  TransferFunction function;
  if (const auto gamma = in.Find("gamma")) {
    function = {.curve = Curve::kGamma, .gamma = gamma->Number({1, 4}), .ramp = {}};
  }
  if (const auto ramp = in.Find("ramp")) {
    if (function.curve == Curve::kGamma) value.Refuse("expected \"gamma\" or \"ramp\", not both");
    function = {.curve = Curve::kRamp, .gamma = 1, .ramp = ReadRamp(*ramp)};
  }
  in.Finish();
  if (function.curve == Curve::kLinear) value.Refuse("expected the key \"gamma\" or \"ramp\"");
  return function;
}

TransferFunction OfCurve(Curve curve) { return {.curve = curve, .gamma = 1, .ramp = {}}; }

TransferFunction ReadPanelTransfer(const JsonValue& value) {
  if (!IsName(value, value.IsObject(), "an object")) return ReadOwnCurve(value);
  return OfCurve(Named<Curve>(value, {{"linear", Curve::kLinear}, {"srgb", Curve::kSrgb}}));
}

TransferFunction ReadTargetTransfer(const JsonValue& value, const TransferFunction& panel) {
  if (!IsName(value, value.IsObject(), "an object")) return ReadOwnCurve(value);
  return Named<TransferFunction>(value, {{kPanelItself, panel},
                                         {"linear", OfCurve(Curve::kLinear)},
                                         {"srgb", OfCurve(Curve::kSrgb)},
                                         {"bt1886", OfCurve(Curve::kBt1886)},
                                         {"hlg", OfCurve(Curve::kHlg)},
                                         {"st2084", OfCurve(Curve::kSt2084)}});
}

Primaries ReadTargetPrimaries(const JsonValue& value, const Primaries& panel) {
  if (IsName(value, value.IsObject(), "an object")) {
    return Named<Primaries>(value, {{kPanelItself, panel},
                                    {"srgb", color::kSrgb},
                                    {"display_p3", color::kDisplayP3},
                                    {"dcip3", color::kDciP3},
                                    {"bt2020", color::kBt2020}});
  }
  Primaries own = ReadPrimaries(value);
  own.white = panel.white;
  return own;
}

Chromaticity ReadTargetWhite(const JsonValue& value, const Chromaticity& panel) {
  if (!IsName(value, value.IsArray(), "an array of 2")) return ReadWhite(value);
  return Named<Chromaticity>(value, {{kPanelItself, panel},
                                     {"D50", color::kD50},
                                     {"D65", color::kD65},
                                     {"DCI", color::kDciWhite}});
}

color::Luminance ReadLuminance(const JsonValue& value) {
  ObjectReader in(value);
  color::Luminance luminance;
  luminance.peak = in.Need("peak").Number({1, 10000});
  // Below that contrast HLG's black lift would leave its square-law segment.
  constexpr double kLowestContrast = 100;
  luminance.black = in.Number("black", {0, luminance.peak / kLowestContrast}, 0);
  in.Finish();
  return luminance;
}

}  // namespace

void ReadCalibration(const JsonValue& value, Panel* panel) {
  ObjectReader in(value);
  panel->primaries = ReadPrimaries(in.Need("primaries"));
  const JsonValue white = in.Need("white");
  panel->primaries.white = ReadWhite(white);
  CheckWhite(panel->primaries, white);
  panel->luminance = ReadLuminance(in.Need("luminance"));
  panel->transfer = ReadPanelTransfer(in.Need("transfer"));
  panel->bit_depth = static_cast<uint32_t>(in.Integer("bit_depth", 6, 16, 8));
  in.Finish();
}

Target ReadTarget(const JsonValue& value, const Panel& panel) {
  ObjectReader in(value);
  Target target = {.primaries = panel.primaries, .transfer = panel.transfer};
  if (const auto primaries = in.Find("primaries")) {
    target.primaries = ReadTargetPrimaries(*primaries, panel.primaries);
  }
  const auto white = in.Find("white");
  if (white) {
    target.primaries.white = ReadTargetWhite(*white, panel.primaries.white);
  }
  CheckWhite(target.primaries, white.value_or(value));
  if (const auto transfer = in.Find("transfer")) {
    target.transfer = ReadTargetTransfer(*transfer, panel.transfer);
  }
  target.adaptation = in.Bool("adaptation", true);
  if (const auto mapping = in.Find("gamut_mapping")) {
    target.gamut_mapping = Named<GamutMapping>(
        *mapping, {{"none", GamutMapping::kNone},
                   {"desaturate", GamutMapping::kDesaturate},
                   {"nearest", GamutMapping::kNearest},
                   {"compress", GamutMapping::kCompress}});
  }
  in.Finish();
  return target;
}

}  // namespace tarn::reference
