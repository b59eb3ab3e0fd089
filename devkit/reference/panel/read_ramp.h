// SPDX-License-Identifier: Apache-2.0

// Measured ramps of a panel description.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "devkit/reference/color/ramp.h"
#include "devkit/reference/panel/json_reader.h"

namespace tarn::reference {

// The keys "ramp", which stands there, "full_scale" and "fit": the ramps of
// red, green and blue, both columns rising from 0 to 1. `notes` gets a line for
// each ramp that was fitted.
std::array<color::Ramp, 3> ReadRamps(ObjectReader* in, std::vector<std::string>* notes);

}  // namespace tarn::reference
