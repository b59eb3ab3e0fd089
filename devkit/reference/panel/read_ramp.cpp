// SPDX-License-Identifier: Apache-2.0
#include "devkit/reference/panel/read_ramp.h"

#include <algorithm>
#include <functional>
#include <sstream>

#include "devkit/reference/panel/read_name.h"

namespace tarn::reference {
namespace {

using color::Ramp;

struct RampForm {
  double full_scale = 1;
  bool fit = false;
};

Ramp ReadMeasurements(const std::vector<JsonValue>& elements, const RampForm& form) {
  Ramp ramp;
  for (const JsonValue& element : elements) {
    const std::vector<JsonValue> pair = element.Elements(2, 2);
    const double signal = pair[0].Number({0, form.full_scale}) / form.full_scale;
    ramp.push_back({signal, pair[1].Number({0, 10000})});
  }
  return ramp;
}

// Smaller ones, in shares of the range, could vanish in a division by it.
constexpr double kSmallestRise = 1e-9;

// The fit of a ramp whose light may fall, but only little, or it was no ramp.
Ramp Fitted(const Ramp& measured, const JsonValue& value, std::vector<std::string>* notes) {
  constexpr double kLargestResidual = 0.02;
  const double range = measured.back().light - measured.front().light;
  const auto rises = [&](const color::RampPoint& low, const color::RampPoint& high) {
    return high.light - low.light > kSmallestRise * range;
  };
  if (std::adjacent_find(measured.begin(), measured.end(), std::not_fn(rises)) == measured.end()) {
    return measured;
  }
  Ramp fit = IsotonicFit(measured, 2 * kSmallestRise * std::max(range, 0.0));
  const color::Residual residual = LargestResidual(fit, measured);
  if (residual.light > kLargestResidual * range) {
    value.Refuse("light falls too far to be fitted: more than 2 % of its range");
  }
  std::ostringstream note;
  note << "fitted; at most " << residual.light << " (" << 100 * residual.light / range
       << " % of the range) from the measurement, at signal " << residual.signal;
  notes->push_back(value.Located(note.str()));
  return fit;
}

Ramp ReadRamp(const JsonValue& value, const RampForm& form, std::vector<std::string>* notes) {
  const std::vector<JsonValue> elements = value.Elements(2, 1024);
  Ramp ramp = ReadMeasurements(elements, form);
  if (ramp.front().signal != 0 || ramp.back().signal != 1) {
    std::ostringstream scale;
    scale << form.full_scale;
    value.Refuse("signals must reach from 0 to " + scale.str());
  }
  for (size_t i = 1; i < ramp.size(); ++i) {
    if (ramp[i].signal - ramp[i - 1].signal <= kSmallestRise) {
      elements[i].Refuse("signal must rise, by more than 1e-9 of its range");
    }
  }
  if (form.fit) ramp = Fitted(ramp, value, notes);
  const double black = ramp.front().light;
  const double range = ramp.back().light - black;
  for (size_t i = 1; i < ramp.size(); ++i) {
    if (ramp[i].light - ramp[i - 1].light > kSmallestRise * range) continue;
    elements[i].Refuse("light must rise, by more than 1e-9 of its range" +
                       std::string(form.fit ? "" : R"( ("fit": "isotonic" evens it out))"));
  }
  for (color::RampPoint& point : ramp) point.light = (point.light - black) / range;
  return ramp;
}

}  // namespace

std::array<Ramp, 3> ReadRamps(ObjectReader* in, std::vector<std::string>* notes) {
  const RampForm form = {
      .full_scale = in->Number("full_scale", {1, 65535}, 1),
      .fit =
          in->Find("fit") && Named<bool>(in->Need("fit"), {{"none", false}, {"isotonic", true}})};
  const JsonValue value = in->Need("ramp");
  if (!value.IsObject()) {
    if (!value.IsArray()) value.Refuse("expected an array or an object");
    const Ramp grey = ReadRamp(value, form, notes);
    return {grey, grey, grey};
  }
  ObjectReader channels(value);
  std::array<Ramp, 3> ramps = {ReadRamp(channels.Need("red"), form, notes),
                               ReadRamp(channels.Need("green"), form, notes),
                               ReadRamp(channels.Need("blue"), form, notes)};
  channels.Finish();
  return ramps;
}

}  // namespace tarn::reference
