// SPDX-License-Identifier: Apache-2.0

// What --json prints.
#pragma once

#include <nlohmann/json.hpp>
#include <ostream>

#include "modes/color_mode.h"

namespace zelctl {

// Members keep the order in which they are set.
using Json = nlohmann::ordered_json;

Json ModeJson(const velaricolor::ColorModeList& list, size_t index);

// Indented; text that is not UTF-8 is shown with replacement characters, numbers that
// are not finite as "nan", "inf" and "-inf".
void PrintJson(Json value, std::ostream& out);

}  // namespace zelctl
