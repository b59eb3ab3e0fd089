// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/report/patches_file.h"

#include <algorithm>
#include <set>
#include <sstream>

#include "devkit/zelctl/report/device_values.h"

namespace zelctl {
namespace {

using tarn::color::Vec3;

constexpr const char* kHeader =
    "CTI1\n\n"
    "DESCRIPTOR \"Patches of the report on a display mode\"\n"
    "ORIGINATOR \"zelctl report\"\n"
    "KEYWORD \"COLOR_REP\"\n"
    "COLOR_REP \"RGB\"\n"
    "KEYWORD \"APPROX_WHITE_POINT\"\n";

constexpr const char* kFormat =
    "NUMBER_OF_FIELDS 7\n"
    "BEGIN_DATA_FORMAT\n"
    "SAMPLE_ID RGB_R RGB_G RGB_B XYZ_X XYZ_Y XYZ_Z\n"
    "END_DATA_FORMAT\n\n";

}  // namespace

std::string PatchesFile(const ModeEvaluation& mode) {
  const Vec3& white = FullWhite(mode).shown.xyz;
  constexpr double kDarkest = 1e-6;  // a mode may show nothing
  const double unit = kFullDevice / std::max(white[1], kDarkest);
  std::ostringstream rows;
  rows.setf(std::ios::fixed);
  std::set<ContentCode> written;
  for (const PatchResult& result : mode.patches) {
    if (!written.insert(result.patch.code).second) continue;
    rows << written.size();
    for (const double value : DeviceValues(result.patch.code)) rows << ' ' << value;
    for (const double value : result.shown.xyz) rows << ' ' << unit * value;
    rows << '\n';
  }
  std::ostringstream out;
  out << kHeader << "APPROX_WHITE_POINT \"" << unit * white[0] << ' ' << unit * white[1] << ' '
      << unit * white[2] << "\"\n\n"
      << kFormat << "NUMBER_OF_SETS " << written.size() << "\nBEGIN_DATA\n"
      << rows.str() << "END_DATA\n";
  return out.str();
}

}  // namespace zelctl
