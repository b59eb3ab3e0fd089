// SPDX-License-Identifier: Apache-2.0

// Folding a transform into the PCC block: the block's matrix applies first, the
// transform to its result.

#include "interface/payload.h"
#include "pcc/pcc_arithmetic.h"
#include "pcc/pcc_block.h"
#include "pcc/pcc_merge.h"
#include "plugin/checks.h"
#include "plugin/log.h"
#include "plugin/zel_tarn_impl.h"

namespace velaricolor {

namespace {

// A 3x3 product has no place for the transform's offsets; the active matrix's it carries.
bool HasOffset(const pcc_coeff_data& pcc) {
  return pcc.r[0] != 0.0 || pcc.g[0] != 0.0 || pcc.b[0] != 0.0;
}

bool CheckOperands(const pcc_coeff_data* pcc_trans, const pcc_coeff_data* pcc_active,
                   const pcc_coeff_data* pcc_out, const char* function) {
  if (pcc_trans != nullptr && pcc_active != nullptr && pcc_out != nullptr) return true;
  ZEL_LOGE_AS(function, "Invalid params : pcc_trans %pK pcc_active %pK pcc_out %pK",
              static_cast<const void*>(pcc_trans), static_cast<const void*>(pcc_active),
              static_cast<const void*>(pcc_out));
  return false;
}

}  // namespace

int ZelTarnImpl::ApplyColorTransform(bool enable, const pcc_coeff_data* pcc,
                                     HwConfigOutputParams* out) {
  HwConfigPayload* const payload = FindPccPayload(out);
  if (payload == nullptr) {
    PccPostBlendConfig* const added = AppendPccBlock(out);
    added->enable = enable;
    if (enable) added->coeffs = *pcc;
    return kOk;
  }
  if (!enable) return kOk;

  PccPostBlendConfig* block = PccRecordOf(*payload);
  if (block == nullptr) block = ResetPccRecord(payload);

  // Where nothing can be composed, the transform alone stands.
  pcc_coeff_data result = *pcc;
  const pcc_coeff_data active = block->coeffs;
  const bool enabled = IsSet(block->enable);
  if (enabled && algo_init_done_) {
    ZEL_LOGI(2, "pcc multiply by libtarn-algo");
    ColorIntfPCCMultiply(pcc, &active, &result);
  } else if (enabled && !HasOffset(*pcc)) {
    ZEL_LOGI(2, "libtarn-algo not initialized, using 3x3 pcc multiplication");
    Color3x3PCCMultiply(pcc, &active, &result);
  }
  block->enable = true;
  block->coeffs = result;
  return kOk;
}

void ZelTarnImpl::ColorIntfPCCMultiply(const pcc_coeff_data* pcc_trans,
                                       const pcc_coeff_data* pcc_active, pcc_coeff_data* pcc_out) {
  if (!CheckOperands(pcc_trans, pcc_active, pcc_out, __func__)) return;

  tarn::PccMergeInput operands = {.trans = *pcc_trans, .active = *pcc_active};
  tarn::PccMergeOutput merged;
  const tarn::TarnPayload input = tarn::Wrap(&operands);
  tarn::TarnPayload output = tarn::Wrap(&merged);
  if (algo_intf_->ProcessOps(tarn::kZelPccMerge, input, &output) != kOk) {
    ZEL_LOGE("Failed to process kZelPccMerge");
    return;
  }
  *pcc_out = merged.result;
}

void ZelTarnImpl::Color3x3PCCMultiply(const pcc_coeff_data* pcc_trans,
                                      const pcc_coeff_data* pcc_active, pcc_coeff_data* pcc_out) {
  if (!CheckOperands(pcc_trans, pcc_active, pcc_out, __func__)) return;

  Multiply3x3(*pcc_trans, *pcc_active, pcc_out);
}

}  // namespace velaricolor
