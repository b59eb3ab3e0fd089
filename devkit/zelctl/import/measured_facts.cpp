// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/import/measured_facts.h"

#include <algorithm>

#include "devkit/colorimetry/ciede2000.h"
#include "devkit/zelctl/errors.h"
#include "devkit/zelctl/import/line_text.h"
#include "devkit/zelctl/import/ramp_shape.h"

namespace zelctl {
namespace {

using tarn::color::Chromaticity;
using tarn::color::Ciede2000;
using tarn::color::Mat3;
using tarn::color::Multiply;
using tarn::color::Ramp;
using tarn::color::RampPoint;
using tarn::color::Vec3;

using Colors = std::vector<MeasuredColor>;

constexpr Mat3 kFull = tarn::color::kIdentity;  // signals of the primaries
constexpr std::array<const char*, 3> kNames = {"red", "green", "blue"};

Vec3 Without(const Vec3& black, const Vec3& xyz) {
  return {xyz[0] - black[0], xyz[1] - black[1], xyz[2] - black[2]};
}

double Dot(const Vec3& a, const Vec3& b) { return a[0] * b[0] + a[1] * b[1] + a[2] * b[2]; }

std::string Times(const MeasuredColor& color) {
  return std::to_string(color.readings.size()) +
         (color.readings.size() == 1 ? " reading" : " readings");
}

const MeasuredColor& Need(const Colors& colors, const Vec3& signal, const std::string& what) {
  const MeasuredColor* color = Find(colors, signal);
  if (color != nullptr && color->xyz[1] > 0) return *color;
  throw UsageError("no " + what + " was measured (" + SignalText(signal) + ")");
}

// XYZ in the file's unit.
struct Ends {
  Vec3 black = {};
  Vec3 white = {};
  Mat3 primaries = {};  // one per row, black taken off
};

// The steps towards the signal `full`, from black to `range` above it.
Ramp Steps(const Colors& colors, const Vec3& full, const Vec3& black, const Vec3& range) {
  Ramp ramp;
  for (const MeasuredColor& color : colors) {
    const double signal = *std::max_element(color.signal.begin(), color.signal.end());
    const MeasuredColor* step =
        Find(colors, {signal * full[0], signal * full[1], signal * full[2]});
    if (step != &color) continue;
    const Vec3 light = Without(black, color.xyz);
    // Along the colour of full signal: blue has too little luminance to be told by it.
    ramp.push_back({signal, Dot(light, range) / Dot(range, range)});
  }
  if (ramp.front().signal > 0) ramp.insert(ramp.begin(), {0, 0});  // black wasn't measured
  return ramp;
}

Ends TakeEnds(const Colors& colors, PanelFacts* facts) {
  Ends ends;
  const MeasuredColor& white = Need(colors, {1, 1, 1}, "full white");
  ends.white = white.xyz;
  facts->primaries.white = tarn::color::ToChromaticity(white.xyz);
  facts->source.push_back("white: " + Times(white) + ", " +
                          ChromaticityText(facts->primaries.white));
  if (const MeasuredColor* black = Find(colors, {0, 0, 0})) {
    ends.black = black->xyz;
    facts->black = black->xyz[1] / white.xyz[1];
    facts->source.push_back("black: " + Times(*black) + ", " + NumberText(*facts->black) +
                            " of the peak; taken off the primaries, its own colour is left out");
  }
  const std::array<Chromaticity*, 3> places = {&facts->primaries.red, &facts->primaries.green,
                                               &facts->primaries.blue};
  for (size_t i = 0; i < 3; ++i) {
    const MeasuredColor& full = Need(colors, kFull[i], "full " + std::string(kNames[i]));
    ends.primaries[i] = Without(ends.black, full.xyz);
    *places[i] = tarn::color::ToChromaticity(ends.primaries[i]);
    facts->source.push_back(std::string(kNames[i]) + ": " + Times(full) + ", " +
                            ChromaticityText(*places[i]));
  }
  return ends;
}

// How far white is from red, green and blue together, which a description takes for it.
double Additivity(const Ends& ends, PanelFacts* facts) {
  Vec3 sum = ends.black;
  for (const Vec3& primary : ends.primaries) {
    for (size_t i = 0; i < 3; ++i) sum[i] += primary[i];
  }
  const double difference = Ciede2000(sum, ends.white, ends.white);
  facts->source.push_back("additivity: red, green and blue together are " +
                          DifferenceText(difference) + " from white, " +
                          NumberText(100 * sum[1] / ends.white[1]) + " % of its luminance");
  return difference;
}

// What the channels share in the greys, put between the steps of each channel. How many.
size_t AddGreys(const Colors& colors, const Ends& ends, std::array<Ramp, 3>* channels) {
  Mat3 primaries;  // one per column
  for (size_t i = 0; i < 3; ++i) {
    for (size_t j = 0; j < 3; ++j) primaries[i][j] = ends.primaries[j][i];
  }
  const Mat3 shares = tarn::color::Inverse(primaries);
  const Vec3 full = Multiply(shares, Without(ends.black, ends.white));
  if (!(full[0] > 0 && full[1] > 0 && full[2] > 0)) return 0;
  constexpr double kApart = 1.0 / 1024;
  size_t added = 0;
  for (const MeasuredColor& color : colors) {
    const double signal = color.signal[0];
    if (Find(colors, {signal, signal, signal}) != &color) continue;
    const Vec3 light = Multiply(shares, Without(ends.black, color.xyz));
    for (size_t i = 0; i < 3; ++i) {
      Ramp& ramp = (*channels)[i];
      const auto after = std::lower_bound(
          ramp.begin(), ramp.end(), signal - kApart,
          [](const RampPoint& point, double limit) { return point.signal <= limit; });
      if (after == ramp.end() || after->signal < signal + kApart) continue;
      ramp.insert(after, {signal, light[i] / full[i]});
      added += i == 0 ? 1 : 0;
    }
  }
  return added;
}

void TakeChannels(const Colors& colors, const Ends& ends, bool additive,
                  std::array<Ramp, 3> channels, PanelFacts* facts) {
  std::string line = "transfer: from single-channel steps";
  if (additive) {
    if (const size_t greys = AddGreys(colors, ends, &channels); greys > 0) {
      line += " and, between them, the channels' shares in " + std::to_string(greys) + " greys";
    }
  }
  for (size_t i = 0; i < 3; ++i) {
    const std::string what = std::string(kNames[i]) + " steps";
    facts->ramps[i] = Smoothed(Rising(channels[i], what, &facts->source));
    line += (i == 0 ? "; " : ", ") + std::to_string(channels[i].size()) + " of " + kNames[i];
  }
  facts->source.push_back(line + ", monotone cubics between them");
}

void TakeRamps(const Colors& colors, const Ends& ends, bool additive, PanelFacts* facts) {
  std::array<Ramp, 3> channels;
  size_t fewest = SIZE_MAX;
  for (size_t i = 0; i < 3; ++i) {
    channels[i] = Steps(colors, kFull[i], ends.black, ends.primaries[i]);
    fewest = std::min(fewest, channels[i].size());
  }
  const Ramp greys = Steps(colors, {1, 1, 1}, ends.black, Without(ends.black, ends.white));
  if (fewest > 2) {
    TakeChannels(colors, ends, additive, std::move(channels), facts);
  } else if (greys.size() > 2) {
    facts->ramps.fill(Smoothed(Rising(greys, "greys", &facts->source)));
    facts->source.push_back("transfer: from " + std::to_string(greys.size()) +
                            " greys, one for all channels, monotone cubics between them");
  }
}

}  // namespace

PanelFacts FactsOf(const Colors& colors, const DisplayReadings& readings) {
  PanelFacts facts;
  facts.source.push_back("measurements: " + std::to_string(readings.readings.size()) +
                         " readings of " + std::to_string(colors.size()) +
                         " colours, device values from 0 to " + NumberText(readings.full_scale));
  const Ends ends = TakeEnds(colors, &facts);
  if (readings.unit) facts.peak = ends.white[1] * *readings.unit;
  if (const std::string spread = SpreadText(colors, ends.white); !spread.empty()) {
    facts.source.push_back(spread);
  }
  constexpr double kAdditive = 1;
  const bool additive = Additivity(ends, &facts) < kAdditive;
  TakeRamps(colors, ends, additive, &facts);
  return facts;
}

}  // namespace zelctl
