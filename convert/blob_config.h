// SPDX-License-Identifier: Apache-2.0

// Typed records of the opaque blocks: "PostBlendHdrBlob" and
// "PostBlendGameBlob". A blob may hold any bytes, zeros included; its length is
// the string's size.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "interface/record.h"

namespace zeltarn::layout {

// The one typed record without `enable`.
template <typename Side>
struct HdrBlobPostBlendConfig {
  static constexpr uint32_t kVersion = 32;

  uint32_t version = kVersion;
  std::array<uint8_t, 4> padding = {};
  std::string blob;
};

template <typename Side>
struct GameBlobPostBlendConfig {
  static constexpr uint32_t kVersion = 32;

  uint32_t version = kVersion;
  bool enable = false;  // whether the blob is to be applied
  std::array<uint8_t, 3> padding = {};
  std::string blob;
};

}  // namespace zeltarn::layout

ZEL_DECLARE_SIDES(HdrBlobPostBlendConfig)
ZEL_PIN_SIZE(HdrBlobPostBlendConfig, tarn::HdrBlobPostBlendConfig::kVersion);
ZEL_PIN_ALIGNMENT(HdrBlobPostBlendConfig, 8);
ZEL_PIN_FIELD(HdrBlobPostBlendConfig, version, 0);
ZEL_PIN_FIELD(HdrBlobPostBlendConfig, blob, 8);

ZEL_DECLARE_SIDES(GameBlobPostBlendConfig)
ZEL_PIN_SIZE(GameBlobPostBlendConfig, tarn::GameBlobPostBlendConfig::kVersion);
ZEL_PIN_ALIGNMENT(GameBlobPostBlendConfig, 8);
ZEL_PIN_FIELD(GameBlobPostBlendConfig, version, 0);
ZEL_PIN_FIELD(GameBlobPostBlendConfig, enable, 4);
ZEL_PIN_FIELD(GameBlobPostBlendConfig, blob, 8);
