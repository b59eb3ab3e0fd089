// SPDX-License-Identifier: Apache-2.0

// Tests that envelopes and records pass before a handler uses them.
#pragma once

#include <sys/types.h>

#include <cstdint>
#include <cstring>

#include "handlers/post_blend_hw_config.h"
#include "interface/payload.h"
#include "interface/result_codes.h"
#include "plugin/log.h"

namespace velaricolor {

// The test of an envelope that should carry a T: `len` is T's size, exactly, and
// the address is set.
template <typename T>
bool Carries(const VcPayload& payload) {
  return payload.len == sizeof(T) && payload.payload != nullptr;
}

// The answer to one that fails it, logged under the handler's name. Out of line,
// so that refusals cost the accepted calls nothing.
template <typename T>
[[gnu::cold, gnu::noinline]] int RefuseLength(const VcPayload& payload, const char* function) {
  ZEL_LOGE_AS(function, "len of Input params act %zd exp %d", static_cast<ssize_t>(payload.len),
              static_cast<int>(sizeof(T)));
  return kErrInvalid;
}

// The test of a gamma or inverse-gamma table's length.
inline int CheckGammaEntries(uint32_t num_of_entries, const char* function) {
  if (num_of_entries >= 1 && num_of_entries <= zeltarn::kMaxGammaEntries) return kOk;
  ZEL_LOGE_AS(function, "Invalid of num_of_entries %d", static_cast<int>(num_of_entries));
  return kErrInvalid;
}

// A flag that comes from outside: any byte but 0 is true. It is read as a byte, because a
// bool that is neither 0 nor 1 has no meaning to the compiler.
inline bool IsSet(const bool& flag) {
  uint8_t byte = 0;
  std::memcpy(&byte, &flag, sizeof byte);
  return byte != 0;
}

// The record in an envelope that has passed its test.
template <typename T>
T* RecordOf(const VcPayload& payload) {
  return static_cast<T*>(payload.payload);
}

}  // namespace velaricolor
