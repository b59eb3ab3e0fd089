// SPDX-License-Identifier: Apache-2.0

// Which of a description's forms a transfer function takes.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "devkit/reference/color/ramp.h"
#include "devkit/zelctl/json_output.h"

namespace zelctl {

// The value of "transfer" for the ramps of red, green and blue (signal and light from 0
// to 1): a named function or an exponent where all three are that within one step of 16
// bits, else the ramps, at most 1024 pairs each. Adds a line to `source`.
Json TransferJson(const std::array<tarn::color::Ramp, 3>& ramps, std::vector<std::string>* source);

// The value of "transfer" that a text stands for: "linear", "srgb" or an exponent.
// Throws UsageError.
Json ParseTransfer(const std::string& text);

}  // namespace zelctl
