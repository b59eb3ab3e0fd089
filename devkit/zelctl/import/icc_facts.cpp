// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/import/icc_facts.h"

#include <cmath>

#include "devkit/colorimetry/ciede2000.h"
#include "devkit/zelctl/errors.h"
#include "devkit/zelctl/import/line_text.h"
#include "devkit/zelctl/import/ramp_shape.h"

namespace zelctl {
namespace {

using tarn::color::Chromaticity;
using tarn::color::Ciede2000;
using tarn::color::Inverse;
using tarn::color::Mat3;
using tarn::color::Multiply;
using tarn::color::ToChromaticity;
using tarn::color::Vec3;

// ICC.1, section 7.2.16: the illuminant of the connection space.
constexpr Vec3 kPcsWhite = {0.9642, 1, 0.8249};

Vec3 Column(const Mat3& m, size_t i) { return {m[0][i], m[1][i], m[2][i]}; }

bool IsColor(const Vec3& xyz) {
  return std::isfinite(xyz[0] + xyz[1] + xyz[2]) && xyz[1] > 0 && xyz[0] + xyz[1] + xyz[2] > 0;
}

Chromaticity ChromaticityOf(const Vec3& xyz, const char* what) {
  if (!IsColor(xyz)) throw UsageError("its " + std::string(what) + " is no colour");
  return ToChromaticity(xyz);
}

// From the connection space to the light of the display.
Mat3 Unadaptation(const IccProfile& profile, PanelFacts* facts) {
  const Chromaticity media = ChromaticityOf(profile.white, "media white point (wtpt)");
  const Chromaticity pcs = ToChromaticity(kPcsWhite);
  if (!profile.chad) {
    facts->source.push_back("adaptation to D50: undone by Bradford from the media white point, " +
                            ChromaticityText(media) + " (no chad tag)");
    return BradfordAdaptation(pcs, media);
  }
  const Mat3 unadapted = Inverse(*profile.chad);
  const Chromaticity white =
      ChromaticityOf(Multiply(unadapted, kPcsWhite), "adaptation (chad) of D50");
  constexpr double kNear = 0.002;
  const auto differs = [&white](const Chromaticity& other) {
    return std::abs(other.x - white.x) > kNear || std::abs(other.y - white.y) > kNear;
  };
  std::string line = "adaptation to D50: undone by the chad tag";
  if (differs(media) && (std::abs(media.x - pcs.x) > kNear || std::abs(media.y - pcs.y) > kNear)) {
    line += ", not by the media white point, which is " + ChromaticityText(media);
  }
  facts->source.push_back(line);
  return unadapted;
}

Vec3 CurveEnds(const IccProfile& profile, bool full) {
  Vec3 ends;
  for (size_t i = 0; i < 3; ++i) {
    ends[i] = (full ? profile.curves[i].back() : profile.curves[i].front()).light;
  }
  return ends;
}

void TakeColors(const IccProfile& profile, PanelFacts* facts) {
  const Mat3 unadapted = Unadaptation(profile, facts);
  const Mat3 light = Multiply(unadapted, profile.colorants);
  const Vec3 white = Multiply(light, CurveEnds(profile, true));
  facts->primaries = {.red = ChromaticityOf(Column(light, 0), "red (rXYZ)"),
                      .green = ChromaticityOf(Column(light, 1), "green (gXYZ)"),
                      .blue = ChromaticityOf(Column(light, 2), "blue (bXYZ)"),
                      .white = ChromaticityOf(white, "white, the sum of its colorants,")};
  std::string line = "white: the sum of the colorants, " + ChromaticityText(facts->primaries.white);
  const Vec3 expected = Multiply(unadapted, kPcsWhite);
  const double difference = Ciede2000(white, expected, expected);
  constexpr double kSeen = 0.1;
  if (difference > kSeen) {
    line += "; " + DifferenceText(difference) + " from the white that it is adapted from";
  }
  facts->source.push_back(line);
}

void TakeBlack(const IccProfile& profile, PanelFacts* facts) {
  const double white = Multiply(profile.colorants, CurveEnds(profile, true))[1];
  const double at_zero = Multiply(profile.colorants, CurveEnds(profile, false))[1];
  if (profile.black && (*profile.black)[1] > 0 && profile.white[1] > 0) {
    facts->black = (*profile.black)[1] / profile.white[1];
    facts->source.push_back("black: the black point (bkpt), " + NumberText(*facts->black) +
                            " of the peak");
  } else if (at_zero > 0 && white > 0) {
    facts->black = at_zero / white;
    facts->source.push_back("black: light of the curves at signal 0, " + NumberText(*facts->black) +
                            " of the peak");
  } else if (profile.black) {
    facts->black = 0;
    facts->source.push_back("black: 0, as the black point (bkpt) says");
  }
}

}  // namespace

PanelFacts FactsOf(const IccProfile& profile) {
  PanelFacts facts = {.name = profile.description, .peak = profile.luminance};
  facts.source.push_back("ICC display profile, version " + NumberText(profile.version) + ", \"" +
                         profile.description + "\"");
  if (profile.has_tables) {
    facts.source.emplace_back("its tables (A2B0) were not used: matrix and TRC curves alone");
  }
  if (profile.has_calibration) facts.source.emplace_back(kCalibrated);
  TakeColors(profile, &facts);
  TakeBlack(profile, &facts);
  constexpr std::array<const char*, 3> kCurves = {"rTRC", "gTRC", "bTRC"};
  for (size_t i = 0; i < 3; ++i) {
    facts.ramps[i] = Rising(profile.curves[i], kCurves[i], &facts.source);
  }
  return facts;
}

}  // namespace zelctl
