// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/cgats/readings.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "devkit/zelctl/errors.h"
#include "devkit/zelctl/input.h"

namespace zelctl {
namespace {

constexpr double kBrightest = 1e6;        // cd/m2: far beyond any display
constexpr double kLargestDevice = 65535;  // of a file that states no scale

[[noreturn]] void Refuse(const CgatsTable& table, const std::string& reason) {
  throw UsageError(table.path + ": " + reason);
}

std::optional<std::string> Keyword(const CgatsTable& table, const char* name) {
  const auto found = table.keywords.find(name);
  return found == table.keywords.end() ? std::nullopt : std::optional(found->second);
}

void CheckKind(const CgatsTable& table) {
  if (table.identifier != "CTI3" && table.identifier.rfind("CGATS", 0) != 0) {
    Refuse(table, "line 1: expected CTI3, a file of measurements");
  }
  const std::string device = Keyword(table, "DEVICE_CLASS").value_or("DISPLAY");
  if (device != "DISPLAY") {
    Refuse(table, "DEVICE_CLASS is " + Shown(device) + ": expected measurements of a DISPLAY");
  }
}

size_t Column(const CgatsTable& table, const char* field) {
  const auto found = std::find(table.fields.begin(), table.fields.end(), field);
  if (found != table.fields.end()) return static_cast<size_t>(found - table.fields.begin());
  Refuse(table, "there is no field " + std::string(field));
}

double Number(const CgatsTable& table, size_t row, size_t column, double low, double high) {
  try {
    const double number = ParseNumber(table.rows[row][column]);
    if (number >= low && number <= high) return number;
  } catch (const UsageError&) {  // told below
  }
  Refuse(table, "line " + std::to_string(table.lines[row]) + ": " + table.fields[column] +
                    ": expected a number from " + std::to_string(std::lround(low)) + " to " +
                    std::to_string(std::lround(high)));
}

// The signal is still in the file's device values.
std::vector<Reading> RawReadings(const CgatsTable& table, double largest_device) {
  constexpr std::array<const char*, 3> kDevice = {"RGB_R", "RGB_G", "RGB_B"};
  constexpr std::array<const char*, 3> kXyz = {"XYZ_X", "XYZ_Y", "XYZ_Z"};
  std::vector<Reading> readings(table.rows.size());
  for (size_t i = 0; i < 3; ++i) {
    const size_t device = Column(table, kDevice[i]);
    const size_t xyz = Column(table, kXyz[i]);
    for (size_t row = 0; row < readings.size(); ++row) {
      readings[row].signal[i] = Number(table, row, device, 0, largest_device);
      // A meter may read less than nothing in the dark.
      readings[row].xyz[i] = std::max(Number(table, row, xyz, -kBrightest, kBrightest), 0.0);
    }
  }
  return readings;
}

double FullScale(const CgatsTable& table, const std::vector<Reading>& readings) {
  double largest = 0;
  for (const Reading& reading : readings) {
    largest = std::max(largest, *std::max_element(reading.signal.begin(), reading.signal.end()));
  }
  for (const double full : {1.0, 100.0, 255.0}) {
    if (std::abs(largest - full) < full * 1e-6) return full;
  }
  Refuse(table, "the largest device value should be that of full signal: 1, 100 or 255");
}

std::optional<double> Unit(const CgatsTable& table) {
  const std::string normalized = Keyword(table, "NORMALIZED_TO_Y_100").value_or("YES");
  if (normalized == "NO") return 1;
  if (normalized != "YES") Refuse(table, "NORMALIZED_TO_Y_100: expected YES or NO");
  const auto luminance = Keyword(table, "LUMINANCE_XYZ_CDM2");
  if (!luminance) return std::nullopt;
  const std::vector<std::string> xyz = Split(*luminance, " \t");
  try {
    const double white = xyz.size() == 3 ? ParseNumber(xyz[1]) : 0;
    constexpr double kWhite = 100;
    if (white > 0 && white <= kBrightest) return white / kWhite;
  } catch (const UsageError&) {  // told below
  }
  Refuse(table,
         "LUMINANCE_XYZ_CDM2: expected three numbers, of which the second is the luminance of "
         "white");
}

}  // namespace

DisplayReadings ReadingsOf(const CgatsTable& table, std::optional<double> full_scale) {
  CheckKind(table);
  DisplayReadings result = {.readings = RawReadings(table, full_scale.value_or(kLargestDevice)),
                            .unit = Unit(table)};
  result.full_scale = full_scale ? *full_scale : FullScale(table, result.readings);
  for (Reading& reading : result.readings) {
    for (double& value : reading.signal) value = std::min(value / result.full_scale, 1.0);
  }
  return result;
}

}  // namespace zelctl
