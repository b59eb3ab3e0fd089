// SPDX-License-Identifier: Apache-2.0

// Display profiles (ICC.1), by Little CMS.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "devkit/reference/color/matrix.h"
#include "devkit/reference/color/ramp.h"

namespace zelctl {

// What the tags of a matrix/TRC profile hold, as they hold it.
struct IccProfile {
  double version = 0;
  std::string description;
  tarn::color::Mat3 colorants = {};         // in D50: red, green and blue are columns
  std::array<tarn::color::Ramp, 3> curves;  // signal and light from 0 to 1
  tarn::color::Vec3 white = {};             // wtpt
  std::optional<tarn::color::Vec3> black;   // bkpt
  std::optional<tarn::color::Mat3> chad;    // from the display's white to D50
  std::optional<double> luminance;          // lumi, cd/m2; above 0
  bool has_tables = false;                  // A2B0 too
  bool has_calibration = false;             // vcgt
};

// Whether the file's signature is that of a profile.
bool IsIccProfile(std::string_view bytes);

// Throws UsageError, which holds what Little CMS complained of: for what is truncated or
// damaged, no display profile, or one without matrix and TRC.
IccProfile ReadIccProfile(std::string_view bytes);

}  // namespace zelctl
