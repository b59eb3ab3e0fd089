// SPDX-License-Identifier: Apache-2.0

// ICC display profile: the panel's primaries and curves, as its description states them.
#include <lcms2.h>

#include <cmath>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "devkit/zelctl/errors.h"
#include "devkit/zelctl/export/formats.h"
#include "devkit/zelctl/export/panel_of_mode.h"
#include "devkit/zelctl/text_width.h"

namespace zelctl {
namespace {

using tarn::color::Curve;
using tarn::color::TransferFunction;
using tarn::reference::Panel;

template <auto release>
struct Release {
  template <typename T>
  void operator()(T* object) const {
    release(object);
  }
};
using Profile = std::unique_ptr<void, Release<cmsCloseProfile>>;
using ToneCurve = std::unique_ptr<cmsToneCurve, Release<cmsFreeToneCurve>>;
using Text = std::unique_ptr<cmsMLU, Release<cmsMLUfree>>;

void Require(bool success, const char* what) {
  if (!success) throw std::runtime_error(std::string("icc: Little CMS can't write ") + what);
}

// What a curve is relative to: light of signal 0 and the range above it, shares of the peak.
struct LightRange {
  double black;
  double span;
};

// Signal to a share of the peak, black included, in the form of ICC.1, table 68, function
// type 4: (a X + b)^g + e from d on, c X + f below.
ToneCurve Parametric(const TransferFunction& transfer, const LightRange& range) {
  const auto& [black, span] = range;
  std::vector<double> parameters;  // g a b c d e f
  if (transfer.curve == Curve::kSrgb) {
    const double scale = std::pow(span, 1 / 2.4) / 1.055;
    parameters = {2.4, scale, scale * 0.055, span / 12.92, 0.04045, black, black};
  } else {
    const double exponent = transfer.curve == Curve::kGamma ? transfer.gamma : 1;
    parameters = {exponent, std::pow(span, 1 / exponent), 0, 0, 0, black, black};
  }
  return ToneCurve(cmsBuildParametricToneCurve(nullptr, 5, parameters.data()));
}

// The largest table whose entries meet all points of the ramp, so that straight lines between
// entries are those of the ramp; as large as possible where there is none.
size_t EntriesFor(const tarn::color::Ramp& ramp) {
  constexpr size_t kMost = 4096;  // of a curve in ICC.1:2001
  for (size_t entries = kMost; entries > 2; --entries) {
    bool meets = true;
    for (const auto& point : ramp) {
      const double place = point.signal * static_cast<double>(entries - 1);
      meets = meets && std::abs(place - std::round(place)) < 1e-6;
    }
    if (meets) return entries;
  }
  return kMost;
}

ToneCurve Sampled(const Panel& panel, const LightRange& range, size_t channel) {
  std::vector<cmsUInt16Number> entries(EntriesFor(panel.transfer.ramps[channel]));
  for (size_t i = 0; i < entries.size(); ++i) {
    const double signal = static_cast<double>(i) / static_cast<double>(entries.size() - 1);
    const double light = ToLight(panel.transfer, panel.luminance, channel, signal);
    entries[i] =
        static_cast<cmsUInt16Number>(std::lround(65535 * (range.black + range.span * light)));
  }
  return ToneCurve(cmsBuildTabulatedToneCurve16(
      nullptr, static_cast<cmsUInt32Number>(entries.size()), entries.data()));
}

ToneCurve MakeCurve(const Panel& panel, size_t channel) {
  const double black = panel.luminance.black / panel.luminance.peak;
  const LightRange range = {black, 1 - black};
  ToneCurve curve = panel.transfer.curve == Curve::kRamp ? Sampled(panel, range, channel)
                                                         : Parametric(panel.transfer, range);
  Require(curve != nullptr, "a curve");
  return curve;
}

cmsCIExyY At(const tarn::color::Chromaticity& c) { return {c.x, c.y, 1}; }

void WriteText(void* profile, cmsTagSignature tag, const std::string& text) {
  // What Little CMS writes as it is: UTF-16 without pairs, and ASCII before version 4.
  const char32_t largest = cmsGetProfileVersion(profile) < 4 ? U'~' : U'\uFFFF';
  std::wstring wide;
  for (const char32_t c : Characters(text)) wide += static_cast<wchar_t>(c <= largest ? c : U'?');
  const Text record(cmsMLUalloc(nullptr, 1));
  Require(record != nullptr && cmsMLUsetWide(record.get(), "en", "US", wide.c_str()) != 0 &&
              cmsWriteTag(profile, tag, record.get()) != 0,
          "a text");
}

std::string Bytes(void* profile) {
  cmsUInt32Number size = 0;
  Require(cmsSaveProfileToMem(profile, nullptr, &size) != 0, "the profile");
  std::string bytes(size, '\0');
  Require(cmsSaveProfileToMem(profile, bytes.data(), &size) != 0, "the profile");
  return bytes;
}

// The primaries' colorants are adapted to D50 by Bradford; "chad" takes them there.
std::string MakeProfile(const Panel& panel, bool version4) {
  const cmsCIExyY white = At(panel.primaries.white);
  const cmsCIExyYTRIPLE primaries = {At(panel.primaries.red), At(panel.primaries.green),
                                     At(panel.primaries.blue)};
  const ToneCurve curves[] = {MakeCurve(panel, 0), MakeCurve(panel, 1), MakeCurve(panel, 2)};
  cmsToneCurve* const rgb[] = {curves[0].get(), curves[1].get(), curves[2].get()};
  // Before the profile's version is set, so that its tags are written in that version's types.
  const Profile profile(cmsCreateRGBProfile(&white, &primaries, rgb));
  Require(profile != nullptr, "the primaries");
  cmsSetProfileVersion(profile.get(), version4 ? 4.3 : 2.4);
  WriteText(profile.get(), cmsSigProfileDescriptionTag, panel.name);
  WriteText(profile.get(), cmsSigCopyrightTag, "No copyright, use freely");
  const cmsCIEXYZ luminance = {0, panel.luminance.peak, 0};
  Require(cmsWriteTag(profile.get(), cmsSigLuminanceTag, &luminance) != 0, "the luminance");
  if (version4) {
    Require(cmsMD5computeID(profile.get()) != 0, "the profile's id");
  } else {
    const double black = panel.luminance.black / panel.luminance.peak;
    const cmsCIEXYZ* d50 = cmsD50_XYZ();
    const cmsCIEXYZ point = {black * d50->X, black * d50->Y, black * d50->Z};
    Require(cmsWriteTag(profile.get(), cmsSigMediaBlackPointTag, &point) != 0, "the black point");
  }
  return Bytes(profile.get());
}

bool SameCurves(const Panel& panel, const TransferFunction& other) {
  constexpr int kSteps = 1024;
  for (size_t channel = 0; channel < 3; ++channel) {
    for (int i = 0; i <= kSteps; ++i) {
      const double signal = static_cast<double>(i) / kSteps;
      if (ToLight(panel.transfer, panel.luminance, channel, signal) !=
          ToLight(other, panel.luminance, channel, signal)) {
        return false;
      }
    }
  }
  return true;
}

bool ReadVersion4(const FormatOptions& options) {
  const std::string version = options.icc_version.value_or("4");
  if (version != "2" && version != "4") {
    throw UsageError("--icc-version: expected 2 or 4, not '" + version + "'");
  }
  return version == "4";
}

}  // namespace

ExportedFile WriteIcc(const ExportedMode& mode, const FormatOptions& options) {
  const bool version4 = ReadVersion4(options);
  if (!mode.settings.empty()) {
    throw UsageError(
        "icc describes the panel itself: it takes no colour transform, LTM and dimming");
  }
  const auto [panel, target] = ReadDescription(mode);
  if (target.primaries != panel.primaries || !SameCurves(panel, target.transfer)) {
    throw UsageError("icc describes the panel itself, and " + mode.Title() +
                     " asks for other colours than the panel's own; take a mode without a "
                     "target, as native is");
  }
  return {MakeProfile(panel, version4), {}};
}

}  // namespace zelctl
