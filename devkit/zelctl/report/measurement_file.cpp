// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/report/measurement_file.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "devkit/zelctl/errors.h"
#include "devkit/zelctl/input.h"
#include "devkit/zelctl/report/cgats_file.h"
#include "devkit/zelctl/report/device_values.h"

namespace zelctl {
namespace {

using tarn::color::Vec3;

constexpr double kBrightest = 1e6;  // cd/m2: far beyond any display

// The numbers of a table, by the names of their fields.
class Columns {
 public:
  Columns(const CgatsTable& table, const std::string& path) : table_(table), path_(path) {}

  double Number(size_t row, const char* field, double low, double high) const {
    const auto found = std::find(table_.fields.begin(), table_.fields.end(), field);
    if (found == table_.fields.end()) throw UsageError(path_ + ": there is no field " + field);
    try {
      const auto column = static_cast<size_t>(found - table_.fields.begin());
      const double number = ParseNumber(table_.rows[row][column]);
      if (number >= low && number <= high) return number;
    } catch (const UsageError&) {  // told below
    }
    throw UsageError(path_ + ": line " + std::to_string(table_.lines[row]) + ": " + field +
                     ": expected a number from " + std::to_string(std::lround(low)) + " to " +
                     std::to_string(std::lround(high)));
  }

 private:
  const CgatsTable& table_;
  const std::string& path_;
};

std::vector<Measurement> Measurements(const CgatsTable& table, const std::string& path) {
  constexpr std::array<const char*, 3> kDevice = {"RGB_R", "RGB_G", "RGB_B"};
  constexpr std::array<const char*, 3> kXyz = {"XYZ_X", "XYZ_Y", "XYZ_Z"};
  const Columns columns(table, path);
  std::vector<Measurement> measurements(table.rows.size());
  for (size_t row = 0; row < measurements.size(); ++row) {
    for (size_t i = 0; i < 3; ++i) {
      measurements[row].device[i] = columns.Number(row, kDevice[i], 0, kFullDevice);
      // A meter may read less than nothing in the dark.
      const double xyz = columns.Number(row, kXyz[i], -kBrightest, kBrightest);
      measurements[row].xyz[i] = std::max(xyz, 0.0);
    }
  }
  return measurements;
}

std::optional<double> Unit(const CgatsTable& table, const std::string& path) {
  const auto value = [&table](const char* keyword) -> std::optional<std::string> {
    const auto found = table.keywords.find(keyword);
    return found == table.keywords.end() ? std::nullopt : std::optional(found->second);
  };
  const std::string normalized = value("NORMALIZED_TO_Y_100").value_or("YES");
  if (normalized == "NO") return 1;
  if (normalized != "YES") throw UsageError(path + ": NORMALIZED_TO_Y_100: expected YES or NO");
  const auto luminance = value("LUMINANCE_XYZ_CDM2");
  if (!luminance) return std::nullopt;
  const std::vector<std::string> xyz = Split(*luminance, " \t");
  try {
    const double white = xyz.size() == 3 ? ParseNumber(xyz[1]) : 0;
    constexpr double kWhite = 100;
    if (white > 0 && white <= kBrightest) return white / kWhite;
  } catch (const UsageError&) {  // told below
  }
  throw UsageError(path + ": LUMINANCE_XYZ_CDM2: expected three numbers, of which the second is " +
                   "the luminance of white");
}

}  // namespace

MeasurementFile ReadMeasurementFile(const std::string& path) {
  const CgatsTable table = ReadCgatsFile(path);
  if (table.identifier != "CTI3") {
    throw UsageError(path + ": line 1: expected CTI3, a file of measurements");
  }
  return {Measurements(table, path), Unit(table, path)};
}

std::optional<Vec3> Find(const std::vector<Measurement>& measurements, const ContentCode& code) {
  constexpr double kTolerance = 0.1;  // a quarter of a code: a file rounds device values
  const Vec3 wanted = DeviceValues(code);
  Vec3 sum = {};
  double count = 0;
  for (const Measurement& measurement : measurements) {
    bool matches = true;
    for (size_t i = 0; i < 3; ++i) {
      matches = matches && std::abs(measurement.device[i] - wanted[i]) <= kTolerance;
    }
    if (!matches) continue;
    for (size_t i = 0; i < 3; ++i) sum[i] += measurement.xyz[i];
    ++count;
  }
  if (count == 0) return std::nullopt;
  return Vec3{sum[0] / count, sum[1] / count, sum[2] / count};
}

}  // namespace zelctl
