// Measurements of a mode's patches, and the list of them that a meter's program reads.
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
  std::string path;
  size_t found = 0;  // of the mode's patches
  size_t missing = 0;
  // The file states luminances in cd/m2; else its full white was taken for the one
  // predicted.
  bool absolute = false;
  double predicted_white = 0;  // cd/m2 of full signal
  double measured_white = 0;
  std::vector<MeasuredSet> sets;  // in kPatchSets' order
};

// Reads a CTI3 file with the fields RGB_R, RGB_G, RGB_B (0 to 100) and XYZ_X, XYZ_Y,
// XYZ_Z, and fills `measured` of the mode's patches that it holds. XYZ is in cd/m2
// where NORMALIZED_TO_Y_100 is "NO"; else white is 100, and LUMINANCE_XYZ_CDM2 states
// what that is. Throws UsageError: for a file that isn't such, or that lacks full
// white.
MeasuredSummary ReadMeasurements(const std::string& path, ModeEvaluation* mode);

// The mode's patches as a CTI1 file: device values from 0 to 100 and the XYZ expected,
// with full white at Y = 100. Patches with equal codes stand once.
std::string PatchesFile(const ModeEvaluation& mode);

}  // namespace zelctl
