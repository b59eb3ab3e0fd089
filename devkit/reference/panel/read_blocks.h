// SPDX-License-Identifier: Apache-2.0

// The block configurations that a panel description states as they are.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>

#include "devkit/reference/panel/json_reader.h"
#include "devkit/reference/panel/panel.h"

namespace tarn::reference {

// The block `name` with its typed record.
template <typename T>
HwConfigPayload MakeBlock(const std::string& name, std::shared_ptr<T> record) {
  return {.hw_block = name, .payload = std::move(record), .len = sizeof(T)};
}

// An object that holds any of the keys "pa", "dither", "pa_dither", "hdr_blob",
// "game_blob" and "de". `bit_depth` is the depth to dither to by default.
Blocks ReadBlocks(const JsonValue& value, uint32_t bit_depth);

// The configuration of "PostBlendDither" alone.
HwConfigPayload ReadDither(const JsonValue& value, uint32_t bit_depth);

}  // namespace tarn::reference
