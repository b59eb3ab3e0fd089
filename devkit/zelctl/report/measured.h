// SPDX-License-Identifier: Apache-2.0

// Measurements of a mode's patches.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "devkit/zelctl/report/evaluation.h"

namespace zelctl {

// CIEDE2000 of a set, over the patches that the panel can show and that were measured.
struct MeasuredSet {
  PatchSet set;
  Differences from_target;
  Differences from_prediction;
  // The same with all measurements scaled, so that full white has the luminance that
  // was predicted: what is left without the difference in peak luminance.
  Differences from_target_scaled;
  Differences from_prediction_scaled;
};

struct MeasuredSummary {
  std::string file;  // without its folder
  size_t found = 0;  // of the mode's patches
  size_t missing = 0;
  // The file states luminances in cd/m2; else its full white was taken for the one
  // predicted.
  bool absolute = false;
  double predicted_white = 0;  // cd/m2 of full signal
  double measured_white = 0;
  std::vector<MeasuredSet> sets;  // in kPatchSets' order
};

// Fills `measured` of the mode's patches that the file (measurement_file.h) holds. Throws
// UsageError, for a file without full white too.
MeasuredSummary ReadMeasurements(const std::string& path, ModeEvaluation* mode);

}  // namespace zelctl
