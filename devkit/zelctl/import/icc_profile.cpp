// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/import/icc_profile.h"

#include <lcms2.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <type_traits>

#include "devkit/zelctl/errors.h"
#include "devkit/zelctl/import/line_text.h"

namespace zelctl {
namespace {

using tarn::color::Ramp;
using tarn::color::Vec3;

constexpr size_t kHeaderBytes = 128;

constexpr const char* kSupported =
    "; supported are RGB display profiles with a matrix and TRC curves (tags rXYZ, gXYZ, bXYZ, "
    "rTRC, gTRC, bTRC)";

[[noreturn]] void Refuse(const std::string& reason) { throw UsageError(reason); }

// A profile and what Little CMS says about it.
class Profile {
 public:
  explicit Profile(std::string_view bytes) : context_(cmsCreateContext(nullptr, &complaints_)) {
    cmsSetLogErrorHandlerTHR(context_.get(), &Profile::Keep);
    const auto size = static_cast<cmsUInt32Number>(bytes.size());
    profile_.reset(cmsOpenProfileFromMemTHR(context_.get(), bytes.data(), size));
    if (!profile_) {
      Check("the profile");
      Refuse("can't be read");
    }
    complaints_.clear();
  }

  cmsHPROFILE Get() const { return profile_.get(); }

  bool Has(cmsTagSignature tag) const { return cmsIsTag(profile_.get(), tag) != 0; }

  // The contents of a tag, which the profile owns. What was only complained of is not
  // safe to use either.
  template <typename T>
  const T& Need(cmsTagSignature tag, const char* name) {
    const void* contents = cmsReadTag(profile_.get(), tag);
    Check(name);
    if (contents == nullptr) Refuse("tag " + std::string(name) + " can't be read");
    return *static_cast<const T*>(contents);
  }

 private:
  struct Closer {
    void operator()(void* profile) const { cmsCloseProfile(profile); }
  };
  struct Deleter {
    void operator()(cmsContext context) const { cmsDeleteContext(context); }
  };

  static void Keep(cmsContext context, cmsUInt32Number /*code*/, const char* text) {
    auto* complaints = static_cast<std::string*>(cmsGetContextUserData(context));
    if (complaints->empty()) *complaints = text;
  }

  void Check(const char* what) const {
    if (complaints_.empty()) return;
    Refuse(std::string(what) + " is damaged; Little CMS says: " + PlainText(complaints_));
  }

  std::string complaints_;
  std::unique_ptr<std::remove_pointer_t<cmsContext>, Deleter> context_;
  std::unique_ptr<void, Closer> profile_;
};

Vec3 Xyz(const cmsCIEXYZ& xyz) { return {xyz.X, xyz.Y, xyz.Z}; }

// A table's own entries; a formula at 1024 places.
Ramp Curve(const cmsToneCurve& curve) {
  const bool formula = cmsGetToneCurveParametricType(&curve) != 0;
  const size_t size = formula ? 1024 : cmsGetToneCurveEstimatedTableEntries(&curve);
  const cmsUInt16Number* table = cmsGetToneCurveEstimatedTable(&curve);
  Ramp ramp(size);
  for (size_t i = 0; i < size; ++i) {
    ramp[i].signal = static_cast<double>(i) / static_cast<double>(size - 1);
    const double light = formula ? static_cast<double>(cmsEvalToneCurveFloat(
                                       &curve, static_cast<cmsFloat32Number>(ramp[i].signal)))
                                 : table[i] / 65535.0;
    // What a formula gives beyond the range is clipped, as ICC.1 has it.
    ramp[i].light = std::isnan(light) ? 0 : std::clamp(light, 0.0, 1.0);
  }
  return ramp;
}

std::string Description(const Profile& profile) {
  constexpr size_t kLongest = 128;
  std::array<wchar_t, kLongest> wide = {};
  cmsGetProfileInfo(profile.Get(), cmsInfoDescription, "en", "US", wide.data(),
                    sizeof(wide) - sizeof(wchar_t));
  std::string text;
  for (const wchar_t* c = wide.data(); *c != 0; ++c) {
    text += *c > 0 && *c < 0x80 ? static_cast<char>(*c) : '?';
  }
  return PlainText(text);
}

// Refuses what is no matrix/TRC profile of a display.
void CheckKind(const Profile& profile) {
  // A file may hold values that these enumerations don't have.
  const auto space = static_cast<cmsUInt32Number>(cmsGetColorSpace(profile.Get()));
  const auto device = static_cast<cmsUInt32Number>(cmsGetDeviceClass(profile.Get()));
  if (device != cmsSigDisplayClass || space != cmsSigRgbData) {
    Refuse("not a profile of an RGB display" + std::string(kSupported));
  }
  for (const auto tag : {cmsSigRedColorantTag, cmsSigGreenColorantTag, cmsSigBlueColorantTag,
                         cmsSigRedTRCTag, cmsSigGreenTRCTag, cmsSigBlueTRCTag}) {
    if (profile.Has(tag)) continue;
    const bool tables = profile.Has(cmsSigAToB0Tag) || profile.Has(cmsSigDToB0Tag);
    Refuse((tables ? "a profile of tables (A2B0) alone" : "no matrix and TRC curves") +
           std::string(kSupported));
  }
}

void ReadMatrixAndCurves(Profile* profile, IccProfile* out) {
  struct Channel {
    cmsTagSignature colorant, curve;
    const char *colorant_name, *curve_name;
  };
  constexpr std::array<Channel, 3> kChannels = {{
      {cmsSigRedColorantTag, cmsSigRedTRCTag, "rXYZ", "rTRC"},
      {cmsSigGreenColorantTag, cmsSigGreenTRCTag, "gXYZ", "gTRC"},
      {cmsSigBlueColorantTag, cmsSigBlueTRCTag, "bXYZ", "bTRC"},
  }};
  for (size_t i = 0; i < 3; ++i) {
    const Channel& channel = kChannels[i];
    const Vec3 xyz = Xyz(profile->Need<cmsCIEXYZ>(channel.colorant, channel.colorant_name));
    for (size_t row = 0; row < 3; ++row) out->colorants[row][i] = xyz[row];
    out->curves[i] = Curve(profile->Need<cmsToneCurve>(channel.curve, channel.curve_name));
  }
}

}  // namespace

bool IsIccProfile(std::string_view bytes) {
  constexpr size_t kSignature = 36;
  return bytes.size() >= kSignature + 4 && bytes.substr(kSignature, 4) == "acsp";
}

IccProfile ReadIccProfile(std::string_view bytes) {
  size_t stated = 0;  // Little CMS passes over what lies beyond the end
  for (size_t i = 0; i < 4; ++i) stated = stated << 8 | static_cast<unsigned char>(bytes[i]);
  if (bytes.size() < std::max(stated, kHeaderBytes)) {
    throw UsageError("truncated: the header says " + std::to_string(stated) + " bytes, there are " +
                     std::to_string(bytes.size()));
  }
  Profile profile(bytes);
  CheckKind(profile);
  IccProfile out;
  out.version = cmsGetProfileVersion(profile.Get());
  ReadMatrixAndCurves(&profile, &out);
  out.white = Xyz(profile.Need<cmsCIEXYZ>(cmsSigMediaWhitePointTag, "wtpt"));
  if (profile.Has(cmsSigMediaBlackPointTag)) {
    out.black = Xyz(profile.Need<cmsCIEXYZ>(cmsSigMediaBlackPointTag, "bkpt"));
  }
  if (profile.Has(cmsSigChromaticAdaptationTag)) {
    const double* chad = &profile.Need<double>(cmsSigChromaticAdaptationTag, "chad");
    out.chad = {
        {{chad[0], chad[1], chad[2]}, {chad[3], chad[4], chad[5]}, {chad[6], chad[7], chad[8]}}};
  }
  if (profile.Has(cmsSigLuminanceTag)) {
    const double luminance = profile.Need<cmsCIEXYZ>(cmsSigLuminanceTag, "lumi").Y;
    if (luminance > 0) out.luminance = luminance;
  }
  out.has_tables = profile.Has(cmsSigAToB0Tag);
  out.has_calibration = profile.Has(cmsSigVcgtTag);
  out.description = Description(profile);  // last: nothing hangs on whether it is damaged
  return out;
}

}  // namespace zelctl
