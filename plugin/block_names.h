// SPDX-License-Identifier: Apache-2.0

// Names of hardware blocks: each configuration has the name of its block. Host, plug-in
// and mode parser compare them exactly, letter case included. Code uses these
// constants, never literals.
#pragma once

#include <string>

namespace velaricolor {

inline const std::string kPostBlendGamut = "PostBlendGamut";
inline const std::string kPostBlendIGC = "PostBlendIGC";
inline const std::string kPostBlendGC = "PostBlendGC";
inline const std::string kPostBlendCWBDither = "PostBlendCWBDither";
inline const std::string kPostBlendHdrBlob = "PostBlendHdrBlob";
inline const std::string kHwCapIgcDither = "HwCapIgcDither";
inline const std::string kPostBlendPCC = "PostBlendPCC";
inline const std::string kPostBlendPa = "PostBlendPa";
inline const std::string kPostBlendDither = "PostBlendDither";
inline const std::string kPostBlendPaDither = "PostBlendPaDither";
inline const std::string kPostBlendDE = "PostBlendDE";
inline const std::string kPostBlendGameBlob = "PostBlendGameBlob";
inline const std::string kPostBlendMixerGc = "PostBlendMixerGc";

}  // namespace velaricolor
