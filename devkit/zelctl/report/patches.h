// SPDX-License-Identifier: Apache-2.0

// The colours that a mode is judged by.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "devkit/zelctl/report/content_color.h"

namespace zelctl {

enum class PatchSet { kColorChecker, kGreys, kPrimaries, kWhite };
inline constexpr std::array<PatchSet, 4> kPatchSets = {PatchSet::kColorChecker, PatchSet::kGreys,
                                                       PatchSet::kPrimaries, PatchSet::kWhite};

// Content of 8 bits per channel, so that a picture can hold it.
using ContentCode = std::array<uint8_t, 3>;
inline constexpr double kMaxContentCode = 255;

struct Patch {
  std::string name;
  PatchSet set;
  ContentCode code;
  bool clipped = false;  // the chart's colour lies outside the content's primaries
};

// The signal of a code.
tarn::color::Vec3 SignalOfCode(const ContentCode& code);

// 24 colours of the chart (color_checker.h), relative to the reference white and adapted
// to the target's (Bradford); 33 greys, evenly spaced in the signal; primaries and
// secondaries, and white, at the reference white's signal.
std::vector<Patch> MakePatches(const tarn::reference::Target& target, const ContentColor& content);

}  // namespace zelctl
