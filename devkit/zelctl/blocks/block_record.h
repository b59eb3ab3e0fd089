// SPDX-License-Identifier: Apache-2.0

// Blocks of an answer, and their typed records.
#pragma once

#include <algorithm>
#include <stdexcept>
#include <string>

#include "modes/mode_op_params.h"

namespace zelctl {

// The first block of that name, the one that the plug-in composes into; or null.
inline const velaricolor::HwConfigPayload* FindBlock(
    const velaricolor::HwConfigOutputParams& output, const std::string& name) {
  const auto found =
      std::find_if(output.payloads.begin(), output.payloads.end(),
                   [&name](const auto& payload) { return payload.hw_block == name; });
  return found == output.payloads.end() ? nullptr : &*found;
}

// The payload's record, or null where it is not a T.
template <typename T, typename Side>
const T* RecordOf(const zeltarn::layout::HwConfigPayload<Side>& payload) {
  const auto* record = static_cast<const T*>(payload.payload.get());
  const bool matches =
      record != nullptr && payload.len == sizeof(T) && record->version == T::kVersion;
  return matches ? record : nullptr;
}

// The record of a block that is in effect; null where the block is disabled or
// not part of the answer. Throws std::runtime_error where its record is no T.
template <typename T>
const T* EnabledRecord(const velaricolor::HwConfigOutputParams& output, const std::string& name) {
  const velaricolor::HwConfigPayload* payload = FindBlock(output, name);
  if (payload == nullptr) return nullptr;
  const T* record = RecordOf<T>(*payload);
  if (record == nullptr) {
    throw std::runtime_error(name + ": its record is missing or of another version");
  }
  return record->enable ? record : nullptr;
}

}  // namespace zelctl
