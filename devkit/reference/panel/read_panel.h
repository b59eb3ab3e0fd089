// SPDX-License-Identifier: Apache-2.0

// Reading a panel description (docs/panel-description.md).
#pragma once

#include <nlohmann/json.hpp>
#include <string>

#include "devkit/reference/panel/panel.h"

namespace tarn::reference {

// Throws PanelError, whose text begins with the file's name, when the file is
// anything but a complete and consistent description.
Panel ReadPanel(const std::string& path);

// The same, of a description that isn't in a file; the text begins with the JSON path.
Panel ReadPanel(const nlohmann::json& root);

}  // namespace tarn::reference
