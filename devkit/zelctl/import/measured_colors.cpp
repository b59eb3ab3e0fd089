// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/import/measured_colors.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>

#include "devkit/colorimetry/ciede2000.h"
#include "devkit/zelctl/import/line_text.h"
#include "devkit/zelctl/report/panel_light.h"

namespace zelctl {
namespace {

using tarn::color::Ciede2000;
using tarn::color::Vec3;

// Files state device values to a few places.
std::array<long, 3> Key(const Vec3& signal) {
  constexpr double kPlaces = 1e5;
  return {std::lround(kPlaces * signal[0]), std::lround(kPlaces * signal[1]),
          std::lround(kPlaces * signal[2])};
}

bool IsGrey(const MeasuredColor& color) {
  const auto key = Key(color.signal);
  return key[0] == key[1] && key[1] == key[2];
}

struct Worst {
  double difference = 0;
  const MeasuredColor* color = nullptr;

  void Take(double candidate, const MeasuredColor& of) {
    if (color != nullptr && candidate <= difference) return;
    difference = candidate;
    color = &of;
  }
};

std::string ResidualText(const std::vector<MeasuredColor>& colors,
                         const tarn::reference::Panel& panel, bool greys) {
  const Vec3& white = Find(colors, {1, 1, 1})->xyz;
  const double unit = white[1] / panel.luminance.peak;
  Worst worst;
  double sum = 0;
  size_t count = 0;
  for (const MeasuredColor& color : colors) {
    if (greys && !IsGrey(color)) continue;
    Vec3 emitted = Emitted(panel, color.signal);
    for (double& component : emitted) component *= unit;
    const double difference = Ciede2000(emitted, color.xyz, white);
    worst.Take(difference, color);
    sum += difference;
    ++count;
  }
  return "residual: of " + std::to_string(count) + (greys ? " greys" : " colours") +
         " the description is " + DifferenceText(sum / static_cast<double>(count)) +
         " off in the mean, at most " + DifferenceText(worst.difference) + " (" +
         SignalText(worst.color->signal) + ")";
}

}  // namespace

std::vector<MeasuredColor> Averaged(const std::vector<Reading>& readings) {
  std::map<std::array<long, 3>, MeasuredColor> colors;
  for (const Reading& reading : readings) {
    MeasuredColor& color = colors[Key(reading.signal)];
    color.signal = reading.signal;
    color.readings.push_back(reading.xyz);
  }
  std::vector<MeasuredColor> averaged;
  for (auto& [key, color] : colors) {
    for (const Vec3& xyz : color.readings) {
      for (size_t i = 0; i < 3; ++i) {
        color.xyz[i] += xyz[i] / static_cast<double>(color.readings.size());
      }
    }
    averaged.push_back(std::move(color));
  }
  return averaged;
}

const MeasuredColor* Find(const std::vector<MeasuredColor>& colors, const Vec3& signal) {
  const auto key = Key(signal);
  const auto found = std::lower_bound(
      colors.begin(), colors.end(), key,
      [](const MeasuredColor& color, const auto& wanted) { return Key(color.signal) < wanted; });
  return found != colors.end() && Key(found->signal) == key ? &*found : nullptr;
}

std::string SignalText(const Vec3& signal) {
  return "RGB " + NumberText(100 * signal[0]) + ' ' + NumberText(100 * signal[1]) + ' ' +
         NumberText(100 * signal[2]) + " %";
}

std::string SpreadText(const std::vector<MeasuredColor>& colors, const Vec3& white) {
  Worst worst;
  for (const MeasuredColor& color : colors) {
    if (color.readings.size() < 2) continue;
    for (const Vec3& xyz : color.readings) worst.Take(Ciede2000(xyz, color.xyz, white), color);
  }
  if (worst.color == nullptr) return "";
  return "repeats: at most " + DifferenceText(worst.difference) + " from their mean (" +
         SignalText(worst.color->signal) + ")";
}

std::vector<std::string> ResidualTexts(const std::vector<MeasuredColor>& colors,
                                       const tarn::reference::Panel& panel) {
  return {ResidualText(colors, panel, false), ResidualText(colors, panel, true)};
}

}  // namespace zelctl
