// SPDX-License-Identifier: Apache-2.0
#include "devkit/reference/panel/read_color.h"

#include <algorithm>
#include <sstream>

#include "devkit/reference/panel/read_name.h"
#include "devkit/reference/panel/read_transfer.h"

namespace tarn::reference {
namespace {

using color::Chromaticity;
using color::Primaries;

constexpr const char* kPanelItself = "panel";

Chromaticity ReadChromaticity(const JsonValue& value, Range x, Range y) {
  const std::vector<JsonValue> xy = value.Elements(2, 2);
  return {xy[0].Number(x), xy[1].Number(y)};
}

Chromaticity ReadPrimary(const JsonValue& value, std::vector<std::string>* notes) {
  // Near y = 0 a colour has no luminance, and XYZ no bound.
  const Chromaticity c = ReadChromaticity(value, {0, 1}, {0.001, 1});
  // No light has more, but the fractions of 16 bits in profiles miss a pure red by that.
  constexpr double kRounding = 1e-4;
  const double sum = c.x + c.y;
  if (sum <= 1 + 1e-9) return c;
  if (sum > 1 + kRounding) value.Refuse("x + y must not exceed 1");
  std::ostringstream note;
  note << "x + y exceeds 1 by " << sum - 1 << ", taken for rounding";
  notes->push_back(value.Located(note.str()));
  return {c.x / sum, c.y / sum};
}

// The bounds hold every white in use, and keep cone responses, by which the
// adaptation divides, well above zero.
Chromaticity ReadWhite(const JsonValue& value) {
  return ReadChromaticity(value, {0.2, 0.45}, {0.25, 0.45});
}

Primaries ReadPrimaries(const JsonValue& value, std::vector<std::string>* notes) {
  ObjectReader in(value);
  const Primaries p = {.red = ReadPrimary(in.Need("red"), notes),
                       .green = ReadPrimary(in.Need("green"), notes),
                       .blue = ReadPrimary(in.Need("blue"), notes),
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

Primaries ReadTargetPrimaries(const JsonValue& value, const Primaries& panel,
                              std::vector<std::string>* notes) {
  if (IsName(value, value.IsObject(), "an object")) {
    return Named<Primaries>(value,
                            {{kPanelItself, panel},
                             {"srgb", color::kSrgb},
                             {"display_p3", color::kDisplayP3},
                             {"dcip3", color::kDciP3},
                             {"bt2020", color::kBt2020}},
                            R"(an object with "red", "green" and "blue")");
  }
  Primaries own = ReadPrimaries(value, notes);
  own.white = panel.white;
  return own;
}

Chromaticity ReadTargetWhite(const JsonValue& value, const Chromaticity& panel) {
  if (!IsName(value, value.IsArray(), "an array of 2")) return ReadWhite(value);
  return Named<Chromaticity>(value,
                             {{kPanelItself, panel},
                              {"D50", color::kD50},
                              {"D65", color::kD65},
                              {"DCI", color::kDciWhite}},
                             "an array of x and y");
}

}  // namespace

void ReadCalibration(const JsonValue& value, Panel* panel) {
  ObjectReader in(value);
  panel->primaries = ReadPrimaries(in.Need("primaries"), &panel->notes);
  const JsonValue white = in.Need("white");
  panel->primaries.white = ReadWhite(white);
  CheckWhite(panel->primaries, white);
  panel->luminance = ReadLuminance(in.Need("luminance"));
  panel->transfer = ReadPanelTransfer(in.Need("transfer"), &panel->notes);
  panel->bit_depth = static_cast<uint32_t>(in.Integer("bit_depth", 6, 16, 8));
  in.Finish();
}

Target ReadTarget(const JsonValue& value, const Panel& panel, std::vector<std::string>* notes) {
  ObjectReader in(value);
  Target target = {.primaries = panel.primaries, .transfer = panel.transfer};
  if (const auto primaries = in.Find("primaries")) {
    target.primaries = ReadTargetPrimaries(*primaries, panel.primaries, notes);
  }
  const auto white = in.Find("white");
  if (white) {
    target.primaries.white = ReadTargetWhite(*white, panel.primaries.white);
  }
  CheckWhite(target.primaries, white.value_or(value));
  if (const auto transfer = in.Find("transfer")) {
    target.transfer = ReadTargetTransfer(*transfer, panel.transfer, notes);
  }
  target.adaptation = in.Bool("adaptation", true);
  if (const auto mapping = in.Find("gamut_mapping")) {
    target.gamut_mapping = Named<GamutMapping>(*mapping, {{"none", GamutMapping::kNone},
                                                          {"desaturate", GamutMapping::kDesaturate},
                                                          {"nearest", GamutMapping::kNearest},
                                                          {"compress", GamutMapping::kCompress}});
  }
  in.Finish();
  return target;
}

}  // namespace tarn::reference
