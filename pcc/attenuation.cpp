// SPDX-License-Identifier: Apache-2.0
#include "pcc/pcc_arithmetic.h"
#include "pcc/pcc_block.h"
#include "plugin/log.h"
#include "plugin/zel_tarn_impl.h"

namespace velaricolor {

// Dimming scales the final matrix, offsets included, and enables the block
// whatever the factor.
int ZelTarnImpl::ApplyPccAttenuationFactor(HwConfigOutputParams* out) const {
  const HwConfigPayload* const payload = FindPccPayload(out);
  PccPostBlendConfig* const block = payload == nullptr ? nullptr : PccRecordOf(*payload);
  if (block == nullptr) {
    ZEL_LOGI(2, "no pcc matrix in output_params");
    return kOk;
  }
  Scale(pcc_attenuation_factor_, &block->coeffs);
  block->enable = true;
  return kOk;
}

}  // namespace velaricolor
