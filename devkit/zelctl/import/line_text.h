// SPDX-License-Identifier: Apache-2.0

// Texts of one line about what was read.
#pragma once

#include <string>
#include <string_view>

#include "devkit/reference/color/primaries.h"

namespace zelctl {

// With at most 6 significant digits.
std::string NumberText(double value);

// "CIEDE2000 0.102".
std::string DifferenceText(double ciede2000);

// "x 0.3127 y 0.3290".
std::string ChromaticityText(const tarn::color::Chromaticity& xy);

// A file's own text, which may hold anything and be of any length: blanks and
// printable ASCII are kept, what else there is becomes '?', and a long one is cut.
std::string PlainText(std::string_view text);

}  // namespace zelctl
