// SPDX-License-Identifier: Apache-2.0

// The colours of monochromatic light.
#pragma once

#include <array>

#include "devkit/reference/color/primaries.h"

namespace zelctl {

struct SpectralColor {
  int nanometres;
  tarn::color::Chromaticity xy;
};

// CIE 1931 2 degree observer, from 380 nm to 700 nm in steps of 5 nm: CIE 15,
// chromaticity coordinates of the spectrum. Longer waves look like 700 nm.
extern const std::array<SpectralColor, 65> kSpectralLocus;

}  // namespace zelctl
