// SPDX-License-Identifier: Apache-2.0

// A mode's target in words, with the standards that define it.
#pragma once

#include <string>

#include "devkit/reference/panel/panel.h"

namespace zelctl {

// "sRGB", "D65", or the figures where they have no name.
std::string PrimariesText(const tarn::color::Primaries& primaries);
std::string WhiteText(const tarn::color::Chromaticity& white);

// "sRGB curve", "gamma 2.2", "PQ".
std::string TransferText(const tarn::color::TransferFunction& transfer);

// Standard and section of the transfer function.
std::string TransferSource(const tarn::color::TransferFunction& transfer);

// All of it in one line.
std::string TargetText(const tarn::reference::Panel& panel, const tarn::reference::Target& target);

}  // namespace zelctl
