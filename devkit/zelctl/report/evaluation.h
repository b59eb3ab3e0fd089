// SPDX-License-Identifier: Apache-2.0

// A mode judged: what its target asks for, and what the panel shows of it.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "devkit/colorimetry/gamut_coverage.h"
#include "devkit/colorimetry/lab.h"
#include "devkit/zelctl/blocks/block_pipeline.h"
#include "devkit/zelctl/plot/gamut_diagram.h"
#include "devkit/zelctl/report/patches.h"

namespace zelctl {

// The output of the blocks is rounded to 8 bits, as `render --image` does. Summaries
// are made for the panel's own depth too.
inline constexpr uint32_t kOutputBits = 8;

// XYZ in cd/m2, and L*a*b* with the mode's reference white.
struct Appearance {
  tarn::color::Vec3 xyz = {};
  tarn::color::Lab lab;
};

struct PatchResult {
  Patch patch;
  // Whether the panel can show the target's colour: clipped to its range, the colour
  // differs by less than 0.05 of CIEDE2000.
  bool reachable = true;
  std::array<uint8_t, 3> drive = {};
  Appearance target;
  Appearance shown;
  double difference = 0;  // CIEDE2000
  std::optional<Appearance> measured;
};

// CIEDE2000 over patches; all 0 where there are none.
struct Differences {
  size_t count = 0;
  double mean = 0;
  double max = 0;
};

struct SetSummary {
  PatchSet set;
  Differences reachable;
  Differences unreachable;
  Differences at_panel_depth;  // of the reachable ones
};

struct TonePoint {
  uint8_t code;
  double target;  // cd/m2
  double shown;
};

// White and primaries after a colour step.
struct StepResult {
  std::string label;
  std::array<Appearance, 4> colors;            // white, red, green, blue
  std::array<double, 4> difference_from_mode;  // CIEDE2000 against the mode alone
};

struct ModeEvaluation {
  size_t index = 0;  // place in the mode list
  std::string label;
  std::string ids;
  tarn::reference::Target target;
  tarn::color::Coverage coverage;
  GamutDiagram gamut;
  Appearance reference_white;  // of the target: L* = 100
  double reference_signal = 1;
  std::vector<PatchResult> patches;
  std::vector<SetSummary> summaries;  // one per set, in kPatchSets' order
  std::vector<TonePoint> tone;        // neutral codes 0 to 255
  // Largest difference between the output codes of a neutral; empty where the target's
  // white isn't the panel's, so that they must differ.
  std::optional<int> neutral_spread;
  std::vector<StepResult> steps;  // the mode alone, then one for each setting
};

// All but the steps, the names and the measurements.
ModeEvaluation Evaluate(const tarn::reference::Panel& panel, const tarn::reference::Target& target,
                        const BlockPipeline& pipeline);

// The patches of a set.
std::vector<const PatchResult*> InSet(const ModeEvaluation& mode, PatchSet set);

// The patch with all channels at full signal.
const PatchResult& FullWhite(const ModeEvaluation& mode);

// White and primaries, at the reference white's signal, through `pipeline`.
StepResult EvaluateStep(const std::string& label, const tarn::reference::Panel& panel,
                        const ModeEvaluation& mode, const BlockPipeline& pipeline);

// CIEDE2000 of what `difference` gives for each result.
template <typename Function>
Differences Summarize(const std::vector<const PatchResult*>& results, Function difference) {
  Differences summary;
  for (const PatchResult* result : results) {
    const double value = difference(*result);
    summary.mean += value;
    summary.max = value > summary.max ? value : summary.max;
    ++summary.count;
  }
  if (summary.count > 0) summary.mean /= static_cast<double>(summary.count);
  return summary;
}

}  // namespace zelctl
