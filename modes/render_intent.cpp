// SPDX-License-Identifier: Apache-2.0
#include "plugin/checks.h"
#include "plugin/log.h"
#include "plugin/zel_tarn_impl.h"

namespace velaricolor {

int ZelTarnImpl::ProcessModeRenderIntent(const VcPayload& in, VcPayload* out) {
  if (mode_parser_intf_ == nullptr) return kOk;
  if (const int ret = CheckModeRecords(in, *out, __func__); ret != kOk) return ret;
  const auto& request = *RecordOf<const ModeRenderInputParams>(in);
  auto* const params = RecordOf<HwConfigOutputParams>(*out);

  // A failed parser is no reason to show the wrong colours: what it answered is
  // converted, the colour steps run on whatever blocks there are, and the host
  // sees success.
  ParserRecords records;
  const int ret = AskModeParser(tarn::kZelModeRenderIntent, request, __func__, &records);
  if (ret != kOk) ZEL_LOGE("Failed to process kVcModeRenderIntent, ret %d", ret);
  ConvertHwConfigOutputParams(records.answer, params);

  // The order is fixed: colour transform, LTM, dimming.
  if (color_transform_active_) ApplyColorTransform(true, &color_transform_pcc_, params);
  // Once more after LTM was switched off.
  if (ltm_pcc_config_.enable || last_ltm_pcc_enable_) {
    ZEL_LOGI(2, "Apply ltm pcc, enable %d", static_cast<int>(ltm_pcc_config_.enable));
    ApplyColorTransform(ltm_pcc_config_.enable, &ltm_pcc_config_.coeffs, params);
  }
  last_ltm_pcc_enable_ = ltm_pcc_config_.enable;
  ApplyPccAttenuationFactor(params);

  needs_update_ = false;
  return kOk;
}

}  // namespace velaricolor
