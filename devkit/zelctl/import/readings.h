// Measurements of a display in a CGATS file.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "devkit/reference/color/matrix.h"
#include "devkit/zelctl/report/cgats_file.h"

namespace zelctl {

struct Reading {
  tarn::color::Vec3 signal = {};  // red, green, blue; 0 to 1
  tarn::color::Vec3 xyz = {};     // in the file's unit, none below 0
};

struct DisplayReadings {
  std::vector<Reading> readings;
  double full_scale = 0;                // device value of full signal: 1, 100 or 255
  std::optional<double> cdm2_per_unit;  // empty: the file doesn't say
};

// Throws UsageError for a table that holds no XYZ of RGB
// patches of a display.
DisplayReadings ReadingsOf(const CgatsTable& table);

}  // namespace zelctl
