// The colour-related parts of a panel description.
#pragma once

#include "devkit/reference/panel/json_reader.h"
#include "devkit/reference/panel/panel.h"

namespace tarn::reference {

// The keys "primaries", "white", "luminance", "transfer" and "bit_depth".
void ReadCalibration(const JsonValue& value, Panel* panel);

// A mode's "target". Absent keys mean the panel itself.
Target ReadTarget(const JsonValue& value, const Panel& panel);

}  // namespace tarn::reference
