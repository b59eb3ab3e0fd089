// SPDX-License-Identifier: Apache-2.0

// One hardware block's configuration, as it travels in a list.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "interface/record.h"

namespace zeltarn::layout {

// Names a hardware block and owns the block's typed record, whose type depends
// on the name (convert/*_config.h, pcc/pcc_config.h). Copying a payload shares the record.
//
// A typed record's bulk data has no initialiser. Make records with `= {}` or
// std::make_shared, so that the bulk data is zero.
//
// Every typed record begins with a `version` that equals its own size, and all
// but the HDR blob's have `enable` next. All are aligned to 8 bytes, whatever their
// opaque bytes turn out to hold.
//
// `enable` is one byte. The plug-in reads any value but 0 as true, and hands out
// 0 or 1.
//
// The record's deleter is code of the library that made it, which must stay
// loaded while any payload shares it.
template <typename Side>
struct HwConfigPayload {
  static constexpr uint32_t kVersion = 56;

  uint32_t version = kVersion;
  std::string hw_block;           // one of plugin/block_names.h
  std::shared_ptr<void> payload;  // the typed record, or empty
  uint32_t len = 0;               // bytes of the typed record
};

}  // namespace zeltarn::layout

ZEL_DECLARE_SIDES(HwConfigPayload)
ZEL_PIN_SIZE(HwConfigPayload, tarn::HwConfigPayload::kVersion);
ZEL_PIN_ALIGNMENT(HwConfigPayload, 8);
ZEL_PIN_FIELD(HwConfigPayload, version, 0);
ZEL_PIN_FIELD(HwConfigPayload, hw_block, 8);
ZEL_PIN_FIELD(HwConfigPayload, payload, 32);
ZEL_PIN_FIELD(HwConfigPayload, len, 48);
