// SPDX-License-Identifier: Apache-2.0
#include "interface/payload.h"
#include "plugin/checks.h"
#include "plugin/log.h"
#include "plugin/zel_tarn_impl.h"

namespace velaricolor {

// The panel's global dither configuration, which belongs to no mode.
int ZelTarnImpl::GetPbDitheHwConfig(VcPayload* payload) {
  if (!Carries<HwConfigOutputParams>(*payload)) {
    return RefuseLength<HwConfigOutputParams>(*payload, __func__);
  }
  if (mode_parser_intf_ == nullptr) return kOk;

  tarn::HwConfigOutputParams answer;
  tarn::TarnPayload envelope = tarn::Wrap(&answer, tarn::kZelPbDitherHwConfig);
  if (const int ret = mode_parser_intf_->GetProperty(&envelope); ret != kOk) {
    ZEL_LOGE("Failed to get global dither hw config, ret %d", ret);
    return ret;
  }
  const int ret = ConvertHwConfigOutputParams(answer, RecordOf<HwConfigOutputParams>(*payload));
  if (ret != kOk) ZEL_LOGE("Falied to convert pb dither hwe config to output");
  return ret;
}

}  // namespace velaricolor
