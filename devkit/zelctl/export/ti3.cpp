// SPDX-License-Identifier: Apache-2.0

// CGATS text, as ArgyllCMS's .ti3: XYZ of the patches that a mode is judged by.
#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "devkit/zelctl/errors.h"
#include "devkit/zelctl/export/formats.h"
#include "devkit/zelctl/export/number_text.h"
#include "devkit/zelctl/export/panel_of_mode.h"
#include "devkit/zelctl/report/evaluation.h"

namespace zelctl {
namespace {

using tarn::color::Vec3;

constexpr int kDecimals = 6;

struct Sample {
  ContentCode code;
  Vec3 xyz;  // cd/m2
};

// A target that is brighter than the panel's peak counts as bright as that: PQ's are absolute.
Vec3 Within(double peak, const Vec3& xyz) {
  const double factor = std::min(1.0, peak / std::max(xyz[1], peak));
  return {factor * xyz[0], factor * xyz[1], factor * xyz[2]};
}

// Each code once, in the order of the patches that the report writes, so that ids agree.
std::vector<Sample> Samples(const ExportedMode& mode, bool of_target) {
  const auto [panel, target] = ReadDescription(mode);
  std::vector<Sample> samples;
  std::set<ContentCode> taken;
  for (const PatchResult& result : Evaluate(panel, target, mode.pipeline).patches) {
    if (!taken.insert(result.patch.code).second) continue;
    samples.push_back({result.patch.code, of_target
                                              ? Within(panel.luminance.peak, result.target.xyz)
                                              : result.shown.xyz});
  }
  return samples;
}

Vec3 FullWhite(const std::vector<Sample>& samples) {
  constexpr ContentCode kFullWhite = {255, 255, 255};
  for (const Sample& sample : samples) {
    if (sample.code == kFullWhite && sample.xyz[1] > 0) return sample.xyz;
  }
  throw UsageError("ti3: full white of the mode has no light, to which all else is relative");
}

std::string Numbers(const Vec3& values, double factor) {
  std::string text;
  for (const double value : values) text += " " + FixedText(factor * value, kDecimals);
  return text;
}

}  // namespace

ExportedFile WriteTi3(const ExportedMode& mode, const FormatOptions& options) {
  const std::vector<Sample> samples = Samples(mode, options.target);
  const Vec3 white = FullWhite(samples);
  std::string text =
      "CTI3\n\n"
      "DESCRIPTOR \"" +
      mode.Title() + (options.target ? ": target" : ": prediction") +
      "\"\n"
      "ORIGINATOR \"zelctl export\"\n"
      "KEYWORD \"DEVICE_CLASS\"\n"
      "DEVICE_CLASS \"DISPLAY\"\n"
      "KEYWORD \"COLOR_REP\"\n"
      "COLOR_REP \"RGB_XYZ\"\n"
      "KEYWORD \"LUMINANCE_XYZ_CDM2\"\n"
      "LUMINANCE_XYZ_CDM2 \"" +
      Numbers(white, 1).substr(1) +
      "\"\n"
      "KEYWORD \"NORMALIZED_TO_Y_100\"\n"
      "NORMALIZED_TO_Y_100 \"YES\"\n\n"
      "NUMBER_OF_FIELDS 7\n"
      "BEGIN_DATA_FORMAT\n"
      "SAMPLE_ID RGB_R RGB_G RGB_B XYZ_X XYZ_Y XYZ_Z\n"
      "END_DATA_FORMAT\n\n"
      "NUMBER_OF_SETS " +
      std::to_string(samples.size()) +
      "\n"
      "BEGIN_DATA\n";
  for (size_t i = 0; i < samples.size(); ++i) {
    text += std::to_string(i + 1) + Numbers(SignalOfCode(samples[i].code), 100) +
            Numbers(samples[i].xyz, 100 / white[1]) + "\n";
  }
  return {text + "END_DATA\n", {}};
}

}  // namespace zelctl
