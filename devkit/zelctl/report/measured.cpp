// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/report/measured.h"

#include <algorithm>
#include <cmath>
#include <filesystem>

#include "devkit/colorimetry/ciede2000.h"
#include "devkit/zelctl/cgats/readings.h"
#include "devkit/zelctl/errors.h"
#include "devkit/zelctl/report/device_values.h"

namespace zelctl {
namespace {

using tarn::color::Vec3;
using tarn::color::XyzToLab;

Vec3 Scaled(const Vec3& xyz, double factor) {
  return {factor * xyz[0], factor * xyz[1], factor * xyz[2]};
}

MeasuredSet Compare(const ModeEvaluation& mode, PatchSet set, double scale) {
  std::vector<const PatchResult*> results = InSet(mode, set);
  std::erase_if(results,
                [](const PatchResult* result) { return !result->reachable || !result->measured; });
  const auto from = [&](Appearance PatchResult::*reference, double factor) {
    return Summarize(results, [&, factor](const PatchResult& result) {
      const Vec3 xyz = Scaled(result.measured->xyz, factor);
      return Ciede2000((result.*reference).lab, XyzToLab(xyz, mode.reference_white.xyz));
    });
  };
  return {.set = set,
          .from_target = from(&PatchResult::target, 1),
          .from_prediction = from(&PatchResult::shown, 1),
          .from_target_scaled = from(&PatchResult::target, scale),
          .from_prediction_scaled = from(&PatchResult::shown, scale)};
}

// The mean of the readings of a code; empty where there is none.
std::optional<Vec3> Find(const std::vector<Reading>& readings, const ContentCode& code) {
  constexpr double kTolerance = 0.25 / kMaxContentCode;  // a file rounds device values
  const Vec3 wanted = SignalOfCode(code);
  Vec3 sum = {};
  double count = 0;
  for (const Reading& reading : readings) {
    bool matches = true;
    for (size_t i = 0; i < 3; ++i) {
      matches = matches && std::abs(reading.signal[i] - wanted[i]) <= kTolerance;
    }
    if (!matches) continue;
    for (size_t i = 0; i < 3; ++i) sum[i] += reading.xyz[i];
    ++count;
  }
  if (count == 0) return std::nullopt;
  return Scaled(sum, 1 / count);
}

}  // namespace

MeasuredSummary ReadMeasurements(const std::string& path, ModeEvaluation* mode) {
  const DisplayReadings file = ReadingsOf(ReadCgatsFile(path), kFullDevice);
  const auto white = Find(file.readings, kFullWhite);
  if (!white || (*white)[1] <= 0) {
    throw UsageError(path + ": no measurement of full white (RGB 100 100 100)");
  }
  MeasuredSummary summary = {.file = std::filesystem::path(path).filename(),
                             .absolute = file.unit.has_value()};
  summary.predicted_white = FullWhite(*mode).shown.xyz[1];
  const double factor = file.unit.value_or(summary.predicted_white / (*white)[1]);
  summary.measured_white = factor * (*white)[1];
  for (PatchResult& result : mode->patches) {
    const auto found = Find(file.readings, result.patch.code);
    ++(found ? summary.found : summary.missing);
    if (!found) continue;
    const Vec3 xyz = Scaled(*found, factor);
    result.measured = {xyz, XyzToLab(xyz, mode->reference_white.xyz)};
  }
  for (const PatchSet set : kPatchSets) {
    summary.sets.push_back(Compare(*mode, set, summary.predicted_white / summary.measured_white));
  }
  return summary;
}

}  // namespace zelctl
