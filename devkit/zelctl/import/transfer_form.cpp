// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/import/transfer_form.h"

#include <algorithm>
#include <cmath>
#include <functional>

#include "devkit/reference/color/standard_curves.h"
#include "devkit/zelctl/errors.h"
#include "devkit/zelctl/import/line_text.h"
#include "devkit/zelctl/import/ramp_shape.h"
#include "devkit/zelctl/input.h"

namespace zelctl {
namespace {

using tarn::color::Ramp;
using tarn::color::RampPoint;

constexpr double kStep = 1.0 / 65535;
constexpr size_t kMostPairs = 1024;

// Of a function from the lines of a ramp: at its points, and between them, where lines
// are farthest from a curve.
double Distance(const Ramp& ramp, const std::function<double(double)>& function) {
  double largest = 0;
  for (size_t i = 0; i < ramp.size(); ++i) {
    largest = std::max(largest, std::abs(function(ramp[i].signal) - ramp[i].light));
    if (i == 0) continue;
    const double middle = (ramp[i - 1].signal + ramp[i].signal) / 2;
    const double light = (ramp[i - 1].light + ramp[i].light) / 2;
    largest = std::max(largest, std::abs(function(middle) - light));
  }
  return largest;
}

double Distance(const std::array<Ramp, 3>& ramps, const std::function<double(double)>& function) {
  double largest = 0;
  for (const Ramp& ramp : ramps) largest = std::max(largest, Distance(ramp, function));
  return largest;
}

// The exponent that goes through the middle of the ramp, with as few places as will do.
std::optional<double> Exponent(const std::array<Ramp, 3>& ramps) {
  const auto middle = std::find_if(ramps[0].begin(), ramps[0].end(),
                                   [](const RampPoint& point) { return point.signal >= 0.5; });
  if (middle->signal >= 1) return std::nullopt;
  const double exponent = std::log(middle->light) / std::log(middle->signal);
  for (const double places : {1.0, 10.0, 100.0, 1e3, 1e4, 1e5}) {
    const double rounded = std::round(places * exponent) / places;
    const auto power = [rounded](double signal) { return std::pow(signal, rounded); };
    if (rounded >= 1 && rounded <= 4 && Distance(ramps, power) <= kStep) return rounded;
  }
  return std::nullopt;
}

// The depth of the codes that all signals are, if they are.
double FullScale(const std::array<Ramp, 3>& ramps) {
  const auto is_code = [](double full_scale, const RampPoint& point) {
    const double code = full_scale * point.signal;
    return std::abs(code - std::round(code)) < 1e-9 * full_scale;
  };
  for (const double full_scale : {255.0, 1023.0, 4095.0, 65535.0}) {
    const bool all = std::all_of(ramps.begin(), ramps.end(), [&](const Ramp& ramp) {
      return std::all_of(ramp.begin(), ramp.end(),
                         [&](const RampPoint& point) { return is_code(full_scale, point); });
    });
    if (all) return full_scale;
  }
  return 1;
}

Json Number(double value, double places) {
  const double rounded = std::round(places * value) / places;
  if (rounded == std::floor(rounded)) return static_cast<int64_t>(rounded);
  return rounded;
}

Json RampJson(const Ramp& ramp, double full_scale) {
  constexpr double kPlaces = 1e11;  // steps of a ramp may be as small as 1e-9
  Json pairs = Json::array();
  for (const RampPoint& point : ramp) {
    pairs.push_back({Number(full_scale * point.signal, full_scale > 1 ? 1 : kPlaces),
                     Number(point.light, kPlaces)});
  }
  return pairs;
}

bool Equal(const Ramp& one, const Ramp& other) {
  return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                    [](const RampPoint& a, const RampPoint& b) {
                      return a.signal == b.signal && a.light == b.light;
                    });
}

Json RampsJson(const std::array<Ramp, 3>& ramps, std::vector<std::string>* source) {
  const bool same = Equal(ramps[0], ramps[1]) && Equal(ramps[0], ramps[2]);
  std::array<Ramp, 3> thinned;
  double distance = 0;
  for (size_t i = 0; i < 3; ++i) {
    thinned[i] = Thinned(ramps[i], kMostPairs);
    for (const RampPoint& point : ramps[i]) {
      const double light =
          Interpolate(thinned[i], &RampPoint::signal, &RampPoint::light, point.signal);
      distance = std::max(distance, std::abs(light - point.light));
    }
  }
  std::string line = same ? "transfer: one ramp of " : "transfer: a ramp per channel of ";
  line += std::to_string(thinned[0].size()) + " pairs";
  if (distance > 1e-3 * kStep) {
    line += ", at most " + NumberText(distance / kStep) + " steps of 16 bits off";
  }
  source->push_back(line);
  Json transfer;
  const double full_scale = FullScale(thinned);
  if (same) {
    transfer["ramp"] = RampJson(thinned[0], full_scale);
  } else {
    transfer["ramp"] = {{"red", RampJson(thinned[0], full_scale)},
                        {"green", RampJson(thinned[1], full_scale)},
                        {"blue", RampJson(thinned[2], full_scale)}};
  }
  if (full_scale > 1) transfer["full_scale"] = static_cast<int64_t>(full_scale);
  return transfer;
}

}  // namespace

Json TransferJson(const std::array<Ramp, 3>& ramps, std::vector<std::string>* source) {
  const auto found = [source](const std::string& name) {
    source->push_back("transfer: " + name + ", within one step of 16 bits of the curve");
  };
  if (Distance(ramps, [](double signal) { return signal; }) <= kStep) {
    found("linear");
    return "linear";
  }
  if (Distance(ramps, tarn::color::SrgbToLight) <= kStep) {
    found("sRGB's (IEC 61966-2-1)");
    return "srgb";
  }
  if (const auto exponent = Exponent(ramps)) {
    found("an exponent of " + NumberText(*exponent));
    return {{"gamma", *exponent}};
  }
  return RampsJson(ramps, source);
}

Json ParseTransfer(const std::string& text) {
  if (text == "linear" || text == "srgb") return text;
  try {
    const double exponent = ParseNumber(text);
    if (exponent >= 1 && exponent <= 4) return {{"gamma", exponent}};
  } catch (const UsageError&) {  // told below
  }
  throw UsageError("expected linear, srgb or an exponent from 1 to 4, not '" + text + "'");
}

}  // namespace zelctl
