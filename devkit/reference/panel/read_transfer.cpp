// SPDX-License-Identifier: Apache-2.0
#include "devkit/reference/panel/read_transfer.h"

#include "devkit/reference/panel/read_name.h"
#include "devkit/reference/panel/read_ramp.h"

namespace tarn::reference {
namespace {

using color::Curve;
using color::TransferFunction;

using Notes = std::vector<std::string>;

TransferFunction OfCurve(Curve curve) { return {.curve = curve}; }

// An object with one of the keys "gamma", "ramp" and, of a target, "st2084".
TransferFunction ReadOwnCurve(const JsonValue& value, bool of_target, Notes* notes) {
  ObjectReader in(value);
  const auto gamma = in.Find("gamma");
  const auto ramp = in.Find("ramp");
  const auto st2084 = of_target ? in.Find("st2084") : std::nullopt;
  const int forms = (gamma ? 1 : 0) + (ramp ? 1 : 0) + (st2084 ? 1 : 0);
  TransferFunction function;
  if (forms == 1) {
    if (gamma) function = {.curve = Curve::kGamma, .gamma = gamma->Number({1, 4})};
    if (ramp) function = {.curve = Curve::kRamp, .ramps = ReadRamps(&in, notes)};
    if (st2084) function = {.curve = Curve::kSt2084, .content = ReadLuminance(*st2084)};
  }
  in.Finish();
  if (forms != 1) {
    value.Refuse(of_target ? R"(expected one of the keys "gamma", "ramp" and "st2084")"
                           : R"(expected one of the keys "gamma" and "ramp")");
  }
  return function;
}

}  // namespace

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

TransferFunction ReadPanelTransfer(const JsonValue& value, Notes* notes) {
  if (!IsName(value, value.IsObject(), "an object")) return ReadOwnCurve(value, false, notes);
  return OfCurve(Named<Curve>(value, {{"linear", Curve::kLinear}, {"srgb", Curve::kSrgb}},
                              R"(an object with "gamma" or "ramp")"));
}

TransferFunction ReadTargetTransfer(const JsonValue& value, const TransferFunction& panel,
                                    Notes* notes) {
  if (!IsName(value, value.IsObject(), "an object")) return ReadOwnCurve(value, true, notes);
  return Named<TransferFunction>(value,
                                 {{"panel", panel},
                                  {"linear", OfCurve(Curve::kLinear)},
                                  {"srgb", OfCurve(Curve::kSrgb)},
                                  {"bt1886", OfCurve(Curve::kBt1886)},
                                  {"hlg", OfCurve(Curve::kHlg)},
                                  {"st2084", OfCurve(Curve::kSt2084)}},
                                 R"(an object with "gamma", "ramp" or "st2084")");
}

}  // namespace tarn::reference
