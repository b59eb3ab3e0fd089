// SPDX-License-Identifier: Apache-2.0

// The records of the algorithm library's merge, kZelPccMerge.
#pragma once

#include <cstddef>
#include <cstdint>

#include "pcc/pcc_config.h"

namespace tarn {

struct PccMergeInput {
  static constexpr uint32_t kVersion = 552;

  uint32_t version = kVersion;
  uint32_t padding = 0;
  pcc_coeff_data trans = {};   // the transform, applied last
  pcc_coeff_data active = {};  // the PCC in effect, applied first
};

// Valid only when the merge returned 0.
struct PccMergeOutput {
  static constexpr uint32_t kVersion = 280;

  uint32_t version = kVersion;
  uint32_t padding = 0;
  pcc_coeff_data result = {};
};

static_assert(sizeof(PccMergeInput) == PccMergeInput::kVersion);
ZEL_PIN(alignof(PccMergeInput) == 8, "PccMergeInput changed its alignment");
static_assert(offsetof(PccMergeInput, version) == 0);
static_assert(offsetof(PccMergeInput, trans) == 8);
static_assert(offsetof(PccMergeInput, active) == 280);
static_assert(sizeof(PccMergeOutput) == PccMergeOutput::kVersion);
ZEL_PIN(alignof(PccMergeOutput) == 8, "PccMergeOutput changed its alignment");
static_assert(offsetof(PccMergeOutput, version) == 0);
static_assert(offsetof(PccMergeOutput, result) == 8);

}  // namespace tarn
