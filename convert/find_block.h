// SPDX-License-Identifier: Apache-2.0

// Finding a hardware block in a host's list.
#pragma once

#include <algorithm>
#include <string>

#include "modes/mode_op_params.h"
#include "plugin/same_name.h"

namespace velaricolor {

// The first entry named `hw_block`, letter for letter, or null.
inline HwConfigPayload* FindBlock(HwConfigOutputParams* params, const std::string& hw_block) {
  const auto entry = std::find_if(
      params->payloads.begin(), params->payloads.end(),
      [&](const HwConfigPayload& payload) { return SameName(payload.hw_block, hw_block); });
  return entry == params->payloads.end() ? nullptr : &*entry;
}

}  // namespace velaricolor
