// SPDX-License-Identifier: Apache-2.0

// A file of measurements as a meter's program writes it.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "devkit/zelctl/report/patches.h"

namespace zelctl {

struct Measurement {
  tarn::color::Vec3 device;  // 0 to kFullDevice
  tarn::color::Vec3 xyz;     // not below 0, in the file's unit
};

struct MeasurementFile {
  std::vector<Measurement> measurements;
  std::optional<double> unit;  // cd/m2 of the file's unit, where it states that
};

// A CTI3 file with the fields RGB_R, RGB_G, RGB_B (0 to 100) and XYZ_X, XYZ_Y, XYZ_Z. XYZ
// is in cd/m2 where NORMALIZED_TO_Y_100 is "NO"; else white is 100, and the second number
// of LUMINANCE_XYZ_CDM2, where there is that keyword, is its luminance. Throws UsageError.
MeasurementFile ReadMeasurementFile(const std::string& path);

// The mean of the measurements of a code; empty where there is none.
std::optional<tarn::color::Vec3> Find(const std::vector<Measurement>& measurements,
                                      const ContentCode& code);

}  // namespace zelctl
