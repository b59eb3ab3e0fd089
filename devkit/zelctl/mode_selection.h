// SPDX-License-Identifier: Apache-2.0

// Finding the mode that the user means.
#pragma once

#include <string>

#include "modes/color_mode.h"

namespace zelctl {

inline constexpr const char* kModeHelp = "Index, label, or ids as GAMUT:GAMMA:INTENT";

// "1:2:0"
template <typename Side>
std::string ModeIds(const zeltarn::layout::ColorMode<Side>& mode) {
  return std::to_string(mode.gamut) + ":" + std::to_string(mode.gamma) + ":" +
         std::to_string(mode.intent);
}

// "3 srgb (1:2:0)"
std::string ModeTitle(const velaricolor::ColorModeList& list, size_t index);

// The index of the mode that `text` names: by place in the list, by label, or by
// its three ids. Throws UsageError, with the valid ones, for any other text and
// for a label that several modes carry.
size_t SelectMode(const velaricolor::ColorModeList& list, const std::string& text);

}  // namespace zelctl
