// SPDX-License-Identifier: Apache-2.0
#include "pcc/pcc_block.h"

#include <memory>
#include <utility>

#include "convert/find_block.h"
#include "plugin/block_names.h"

namespace velaricolor {

HwConfigPayload* FindPccPayload(HwConfigOutputParams* params) {
  return FindBlock(params, kPostBlendPCC);
}

PccPostBlendConfig* PccRecordOf(const HwConfigPayload& payload) {
  return static_cast<PccPostBlendConfig*>(payload.payload.get());
}

PccPostBlendConfig* ResetPccRecord(HwConfigPayload* payload) {
  payload->payload = std::make_shared<PccPostBlendConfig>();
  payload->len = sizeof(PccPostBlendConfig);
  return PccRecordOf(*payload);
}

PccPostBlendConfig* AppendPccBlock(HwConfigOutputParams* params) {
  HwConfigPayload fresh = {.hw_block = kPostBlendPCC, .payload = nullptr};
  PccPostBlendConfig* const record = ResetPccRecord(&fresh);
  params->payloads.push_back(std::move(fresh));
  return record;
}

}  // namespace velaricolor
