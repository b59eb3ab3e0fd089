// SPDX-License-Identifier: Apache-2.0

// The test of an envelope that the plug-in sends.
#pragma once

#include <cstdint>
#include <string>

#include "devkit/reference/log.h"
#include "interface/payload.h"

namespace tarn::reference {

// The T in `envelope`, whose version must be `version`. Null, and one line on
// the log, when envelope or record are not acceptable.
template <typename T>
T* RecordOf(const TarnPayload* envelope, const char* tag, uint32_t version = T::kVersion) {
  const auto refuse = [tag](const char* what, uint64_t found, uint64_t expected) -> T* {
    LogError(tag, std::string(what) + " " + std::to_string(found) + ", expected " +
                      std::to_string(expected));
    return nullptr;
  };
  if (envelope == nullptr || envelope->payload == nullptr) {
    LogError(tag, "no record");
    return nullptr;
  }
  if (envelope->version != TarnPayload::kVersion) {
    return refuse("envelope version", envelope->version, TarnPayload::kVersion);
  }
  if (envelope->len != sizeof(T)) return refuse("record length", envelope->len, sizeof(T));
  T* record = static_cast<T*>(envelope->payload);
  if (record->version != version) return refuse("record version", record->version, version);
  return record;
}

}  // namespace tarn::reference
