// SPDX-License-Identifier: Apache-2.0

// The colour-related parts of a panel description.
#pragma once

#include <string>
#include <vector>

#include "devkit/reference/panel/json_reader.h"
#include "devkit/reference/panel/panel.h"

namespace tarn::reference {

// The keys "primaries", "white", "luminance", "transfer" and "bit_depth".
void ReadCalibration(const JsonValue& value, Panel* panel);

// A mode's "target". Absent keys mean the panel itself. `notes` gets a line for
// each ramp that was fitted.
Target ReadTarget(const JsonValue& value, const Panel& panel, std::vector<std::string>* notes);

}  // namespace tarn::reference
