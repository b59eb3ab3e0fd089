// SPDX-License-Identifier: Apache-2.0

// What a meter read of a display, from a CGATS file.
#pragma once

#include <optional>
#include <vector>

#include "devkit/reference/color/matrix.h"
#include "devkit/zelctl/cgats/cgats_file.h"

namespace zelctl {

struct Reading {
  tarn::color::Vec3 signal = {};  // red, green, blue; 0 to 1
  tarn::color::Vec3 xyz = {};     // in the file's unit, none below 0
};

struct DisplayReadings {
  std::vector<Reading> readings;
  double full_scale = 0;       // device value of full signal
  std::optional<double> unit;  // cd/m2 of the file's unit, where it states that
};

// Of a CTI3 table, or another CGATS table with the same fields: RGB_R, RGB_G, RGB_B and
// XYZ_X, XYZ_Y, XYZ_Z. XYZ is in cd/m2 where NORMALIZED_TO_Y_100 is "NO"; else white is
// 100, and the second number of LUMINANCE_XYZ_CDM2, where there is that keyword, is its
// luminance. Full signal is the device value `full_scale`; without it, the largest
// device value tells: 1, 100 or 255. Throws UsageError.
DisplayReadings ReadingsOf(const CgatsTable& table, std::optional<double> full_scale);

}  // namespace zelctl
