// SPDX-License-Identifier: Apache-2.0
#include "plugin/checks.h"
#include "plugin/log.h"
#include "plugin/zel_tarn_impl.h"

namespace velaricolor {

// No colour step follows, and the parser's result is the host's.
int ZelTarnImpl::ProcessModeSwAssets(const VcPayload& in, VcPayload* out) {
  if (mode_parser_intf_ == nullptr) return kOk;
  if (const int ret = CheckModeRecords(in, *out, __func__); ret != kOk) return ret;
  const auto& request = *RecordOf<const ModeRenderInputParams>(in);

  ParserRecords records;
  const int ret = AskModeParser(tarn::kZelModeSwAssets, request, __func__, &records);
  if (ret != kOk) ZEL_LOGE("Failed to process kVcModeSwAssets, ret %d", ret);
  ConvertHwConfigOutputParams(records.answer, RecordOf<HwConfigOutputParams>(*out));
  return ret;
}

}  // namespace velaricolor
