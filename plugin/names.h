// SPDX-License-Identifier: Apache-2.0

// The vocabulary shared with the host and the mode parser: names of hardware blocks,
// keys and values of colour-mode attributes. Compared exactly, letter case included.
#pragma once

#include <string>

#include "plugin/block_names.h"

namespace velaricolor {

// Colour-mode attribute keys. The plug-in passes modes through and never compares
// these keys, nor the values below.
inline const std::string kDynamicRange = "DynamicRange";
inline const std::string kColorGamut = "ColorGamut";
inline const std::string kPictureQuality = "PictureQuality";
inline const std::string kGammaTransfer = "GammaTransfer";
inline const std::string kRenderIntent = "RenderIntent";

// Colour-mode attribute values.
inline const std::string kHdr = "hdr";
inline const std::string kSdr = "sdr";
inline const std::string kNative = "native";
inline const std::string kDcip3 = "dcip3";
inline const std::string kSrgb = "srgb";
inline const std::string kDisplayP3 = "display_p3";
inline const std::string kBt2020 = "bt2020";
inline const std::string kHlg = "hlg";
inline const std::string kSt2084 = "st2084";
inline const std::string kGamma2_2 = "gamma2_2";
inline const std::string kVivid = "vivid";
inline const std::string kSharp = "sharp";
inline const std::string kStandard = "standard";
inline const std::string kAmazon = "amazon";
inline const std::string kNetflix = "netflix";
inline const std::string kEnhanced = "enhanced";

}  // namespace velaricolor
