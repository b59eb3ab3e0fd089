// SPDX-License-Identifier: Apache-2.0

// What a file of another kind says about a panel.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "devkit/reference/color/primaries.h"
#include "devkit/reference/color/ramp.h"

namespace zelctl {

struct PanelFacts {
  std::string name;                  // for people
  tarn::color::Primaries primaries;  // of the panel itself, no adaptation left
  std::optional<double> peak;        // cd/m2
  std::optional<double> black;       // share of the peak
  // Per channel, both columns rising from 0 to 1. Empty: not known.
  std::array<tarn::color::Ramp, 3> ramps;
  std::vector<std::string> source;  // lines: where it all came from, what was assumed
};

// For `source`.
inline constexpr const char* kCalibrated =
    "it describes the display after a calibration in the graphics card (vcgt, CAL), without which "
    "the panel's own curves differ";

// What the user says about the panel; what is unset must be in the file.
struct ImportOptions {
  std::optional<double> peak;           // cd/m2
  std::optional<double> black;          // cd/m2
  std::optional<unsigned> bit_depth;    // of the panel's signal
  std::optional<std::string> transfer;  // "linear", "srgb" or an exponent
  std::vector<std::string> targets;     // modes beside the native one
  std::optional<std::string> name;
};

}  // namespace zelctl
