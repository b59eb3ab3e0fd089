#include "devkit/zelctl/import/readings.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "devkit/zelctl/errors.h"
#include "devkit/zelctl/import/line_text.h"
#include "devkit/zelctl/input.h"

namespace zelctl {
namespace {

std::optional<std::string> Keyword(const CgatsTable& table, const char* name) {
  const auto found = table.keywords.find(name);
  return found == table.keywords.end() ? std::nullopt : std::optional(found->second);
}

void CheckKind(const CgatsTable& table) {
  if (table.identifier != "CTI3" && table.identifier.rfind("CGATS", 0) != 0) {
    throw UsageError("'" + PlainText(table.identifier) +
                     "' is no file of measurements: expected CTI3");
  }
  const std::string device = Keyword(table, "DEVICE_CLASS").value_or("DISPLAY");
  if (device != "DISPLAY") {
    throw UsageError("measurements of the device class '" + PlainText(device) +
                     "': expected DISPLAY");
  }
}

size_t Column(const CgatsTable& table, const char* field) {
  const auto found = std::find(table.fields.begin(), table.fields.end(), field);
  if (found != table.fields.end()) return static_cast<size_t>(found - table.fields.begin());
  throw UsageError("no field " + std::string(field) +
                   "; needed are RGB_R, RGB_G, RGB_B, XYZ_X, XYZ_Y, XYZ_Z");
}

double Number(const CgatsTable& table, size_t row, size_t column) {
  try {
    return ParseNumber(table.rows[row][column]);
  } catch (const UsageError&) {
    throw UsageError("line " + std::to_string(table.lines[row]) + ": " +
                     table.fields[column] + ": expected a number");
  }
}

std::vector<Reading> RawReadings(const CgatsTable& table) {
  constexpr std::array<const char*, 6> kFields = {"RGB_R", "RGB_G", "RGB_B",
                                                  "XYZ_X", "XYZ_Y", "XYZ_Z"};
  constexpr double kBrightest = 1e6;
  std::array<size_t, 6> columns;
  for (size_t i = 0; i < 6; ++i) columns[i] = Column(table, kFields[i]);
  constexpr size_t kMost = 65536;
  if (table.rows.size() > kMost) throw UsageError("more than 65536 readings");
  std::vector<Reading> readings(table.rows.size());
  for (size_t row = 0; row < readings.size(); ++row) {
    for (size_t i = 0; i < 3; ++i) {
      readings[row].signal[i] = Number(table, row, columns[i]);
      // A meter may read less than nothing in the dark.
      readings[row].xyz[i] = std::max(Number(table, row, columns[i + 3]), 0.0);
      if (readings[row].signal[i] >= 0 && readings[row].xyz[i] <= kBrightest) continue;
      throw UsageError("line " + std::to_string(table.lines[row]) +
                       ": a value out of range");
    }
  }
  return readings;
}

// The device value of full signal, which a file states by its largest one only.
double FullScale(const std::vector<Reading>& readings) {
  double largest = 0;
  for (const Reading& reading : readings) {
    for (const double value : reading.signal) largest = std::max(largest, value);
  }
  for (const double full : {1.0, 100.0, 255.0}) {
    if (std::abs(largest - full) < full * 1e-6) return full;
  }
  throw UsageError("the largest device value is " + NumberText(largest) +
                   ": full signal should be 1, 100 or 255");
}

std::optional<double> UnitLuminance(const CgatsTable& table) {
  const std::string normalized = Keyword(table, "NORMALIZED_TO_Y_100").value_or("YES");
  if (normalized == "NO") return 1;
  if (normalized != "YES") throw UsageError("NORMALIZED_TO_Y_100: expected YES or NO");
  const auto luminance = Keyword(table, "LUMINANCE_XYZ_CDM2");
  if (!luminance) return std::nullopt;
  const std::vector<std::string> xyz = Split(*luminance, " \t");
  try {
    const double white = xyz.size() == 3 ? ParseNumber(xyz[1]) : 0;
    if (white > 0) return white / 100;
  } catch (const UsageError&) {  // told below
  }
  throw UsageError("LUMINANCE_XYZ_CDM2: expected three numbers, the second above 0");
}

}  // namespace

DisplayReadings ReadingsOf(const CgatsTable& table) {
  CheckKind(table);
  DisplayReadings result = {.readings = RawReadings(table)};
  result.full_scale = FullScale(result.readings);
  result.cdm2_per_unit = UnitLuminance(table);
  for (Reading& reading : result.readings) {
    for (double& value : reading.signal) value = std::min(value / result.full_scale, 1.0);
  }
  return result;
}

}  // namespace zelctl
