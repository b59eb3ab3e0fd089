#include "devkit/zelctl/report/measured.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <set>
#include <sstream>

#include "devkit/colorimetry/ciede2000.h"
#include "devkit/zelctl/errors.h"
#include "devkit/zelctl/input.h"
#include "devkit/zelctl/report/cgats_file.h"

namespace zelctl {
namespace {

using tarn::color::Vec3;
using tarn::color::XyzToLab;

constexpr double kFullScale = 100;
constexpr ContentCode kFullWhite = {255, 255, 255};

Vec3 DeviceValues(const ContentCode& code) {
  const Vec3 signal = SignalOfCode(code);
  return {kFullScale * signal[0], kFullScale * signal[1], kFullScale * signal[2]};
}

struct Reading {
  Vec3 rgb;
  Vec3 xyz;
};

double Number(const CgatsTable& table, const std::string& path, size_t row, size_t column) {
  try {
    return ParseNumber(table.rows[row][column]);
  } catch (const UsageError& e) {
    throw UsageError(path + ": line " + std::to_string(table.lines[row]) + ": " +
                     table.fields[column] + ": expected a number");
  }
}

size_t Column(const CgatsTable& table, const std::string& path, const char* field) {
  const auto found = std::find(table.fields.begin(), table.fields.end(), field);
  if (found == table.fields.end()) throw UsageError(path + ": there is no field " + field);
  return static_cast<size_t>(found - table.fields.begin());
}

std::vector<Reading> Readings(const CgatsTable& table, const std::string& path) {
  constexpr std::array<const char*, 6> kFields = {"RGB_R", "RGB_G", "RGB_B",
                                                  "XYZ_X", "XYZ_Y", "XYZ_Z"};
  std::array<size_t, 6> columns;
  for (size_t i = 0; i < 6; ++i) columns[i] = Column(table, path, kFields[i]);
  std::vector<Reading> readings(table.rows.size());
  for (size_t row = 0; row < readings.size(); ++row) {
    for (size_t i = 0; i < 3; ++i) {
      readings[row].rgb[i] = Number(table, path, row, columns[i]);
      // A meter may read less than nothing in the dark.
      readings[row].xyz[i] = std::max(Number(table, path, row, columns[i + 3]), 0.0);
      if (readings[row].rgb[i] < 0 || readings[row].rgb[i] > kFullScale) {
        throw UsageError(path + ": line " + std::to_string(table.lines[row]) + ": " + kFields[i] +
                         ": expected 0 to 100");
      }
    }
  }
  return readings;
}

// The mean of the readings of a code; a file states device values to a few places.
std::optional<Vec3> Find(const std::vector<Reading>& readings, const ContentCode& code) {
  constexpr double kTolerance = 0.1;  // a quarter of a code
  const Vec3 wanted = DeviceValues(code);
  Vec3 sum = {};
  double count = 0;
  for (const Reading& reading : readings) {
    bool matches = true;
    for (size_t i = 0; i < 3; ++i) {
      matches = matches && std::abs(reading.rgb[i] - wanted[i]) <= kTolerance;
    }
    if (!matches) continue;
    for (size_t i = 0; i < 3; ++i) sum[i] += reading.xyz[i];
    ++count;
  }
  if (count == 0) return std::nullopt;
  return Vec3{sum[0] / count, sum[1] / count, sum[2] / count};
}

// cd/m2 of the file's unit; empty where it doesn't say.
std::optional<double> UnitLuminance(const CgatsTable& table, const std::string& path) {
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
    if (white > 0) return white / kFullScale;
  } catch (const UsageError&) {  // told below
  }
  throw UsageError(path + ": LUMINANCE_XYZ_CDM2: expected three numbers, the second above 0");
}

const PatchResult& FullWhite(const ModeEvaluation& mode) {
  return *std::find_if(mode.patches.begin(), mode.patches.end(),
                       [](const PatchResult& result) { return result.patch.code == kFullWhite; });
}

MeasuredSet Compare(const ModeEvaluation& mode, PatchSet set, double scale) {
  std::vector<const PatchResult*> results = InSet(mode, set);
  std::erase_if(results,
                [](const PatchResult* result) { return !result->reachable || !result->measured; });
  const auto from = [&](Appearance PatchResult::*reference, double factor) {
    return Summarize(results, [&, factor](const PatchResult& result) {
      Vec3 xyz = result.measured->xyz;
      for (double& component : xyz) component *= factor;
      return Ciede2000((result.*reference).lab, XyzToLab(xyz, mode.reference_white.xyz));
    });
  };
  return {.set = set,
          .from_target = from(&PatchResult::target, 1),
          .from_prediction = from(&PatchResult::shown, 1),
          .from_target_scaled = from(&PatchResult::target, scale),
          .from_prediction_scaled = from(&PatchResult::shown, scale)};
}

}  // namespace

MeasuredSummary ReadMeasurements(const std::string& path, ModeEvaluation* mode) {
  const CgatsTable table = ReadCgatsFile(path);
  if (table.identifier != "CTI3") {
    throw UsageError(path + ": line 1: expected CTI3, a file of measurements");
  }
  const std::vector<Reading> readings = Readings(table, path);
  const std::optional<double> unit = UnitLuminance(table, path);
  const auto white = Find(readings, kFullWhite);
  if (!white || (*white)[1] <= 0) {
    throw UsageError(path + ": no measurement of full white (RGB 100 100 100)");
  }
  MeasuredSummary summary = {.path = path, .absolute = unit.has_value()};
  summary.predicted_white = FullWhite(*mode).shown.xyz[1];
  const double factor = unit.value_or(summary.predicted_white / (*white)[1]);
  summary.measured_white = factor * (*white)[1];
  for (PatchResult& result : mode->patches) {
    const auto reading = Find(readings, result.patch.code);
    ++(reading ? summary.found : summary.missing);
    if (!reading) continue;
    const Vec3 xyz = {factor * (*reading)[0], factor * (*reading)[1], factor * (*reading)[2]};
    result.measured = {xyz, XyzToLab(xyz, mode->reference_white.xyz)};
  }
  for (const PatchSet set : kPatchSets) {
    summary.sets.push_back(Compare(*mode, set, summary.predicted_white / summary.measured_white));
  }
  return summary;
}

std::string PatchesFile(const ModeEvaluation& mode) {
  Vec3 white = FullWhite(mode).shown.xyz;
  white[1] = std::max(white[1], 1e-6);  // a mode may show nothing
  std::ostringstream rows;
  std::set<ContentCode> written;
  rows.setf(std::ios::fixed);
  for (const PatchResult& result : mode.patches) {
    if (!written.insert(result.patch.code).second) continue;
    rows << written.size();
    for (const double value : DeviceValues(result.patch.code)) rows << ' ' << value;
    for (const double value : result.shown.xyz) rows << ' ' << kFullScale * value / white[1];
    rows << '\n';
  }
  std::ostringstream out;
  out << "CTI1\n\n"
         "DESCRIPTOR \"Patches of the report on a display mode\"\n"
         "ORIGINATOR \"zelctl report\"\n"
         "KEYWORD \"APPROX_WHITE_POINT\"\n"
         "APPROX_WHITE_POINT \""
      << kFullScale * white[0] / white[1] << ' ' << kFullScale << ' '
      << kFullScale * white[2] / white[1]
      << "\"\n"
         "KEYWORD \"COLOR_REP\"\n"
         "COLOR_REP \"RGB\"\n\n"
         "NUMBER_OF_FIELDS 7\n"
         "BEGIN_DATA_FORMAT\n"
         "SAMPLE_ID RGB_R RGB_G RGB_B XYZ_X XYZ_Y XYZ_Z\n"
         "END_DATA_FORMAT\n\n"
         "NUMBER_OF_SETS "
      << written.size() << "\nBEGIN_DATA\n"
      << rows.str() << "END_DATA\n";
  return out.str();
}

}  // namespace zelctl
