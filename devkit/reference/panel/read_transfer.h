// SPDX-License-Identifier: Apache-2.0

// The transfer functions of a panel description.
#pragma once

#include <string>
#include <vector>

#include "devkit/reference/color/transfer_function.h"
#include "devkit/reference/panel/json_reader.h"

namespace tarn::reference {

// "peak" and "black".
color::Luminance ReadLuminance(const JsonValue& value);

// `notes` gets a line for each ramp that was fitted.
color::TransferFunction ReadPanelTransfer(const JsonValue& value, std::vector<std::string>* notes);

// A mode's, which may be the one of the panel.
color::TransferFunction ReadTargetTransfer(const JsonValue& value,
                                           const color::TransferFunction& panel,
                                           std::vector<std::string>* notes);

}  // namespace tarn::reference
