// SPDX-License-Identifier: Apache-2.0

// What the two mode operations share: checking the records and asking the parser.

#include <sys/types.h>

#include "interface/payload.h"
#include "plugin/checks.h"
#include "plugin/log.h"
#include "plugin/zel_tarn_impl.h"

namespace velaricolor {

int ZelTarnImpl::CheckModeRecords(const VcPayload& in, const VcPayload& out, const char* function) {
  constexpr uint32_t kInLen = sizeof(ModeRenderInputParams);
  constexpr uint32_t kOutLen = sizeof(HwConfigOutputParams);
  if (in.len != kInLen || out.len != kOutLen) {
    ZEL_LOGE_AS(function, "len of Input params exp %zd act %d output exp %zd act %d",
                static_cast<ssize_t>(kInLen), static_cast<int>(in.len),
                static_cast<ssize_t>(kOutLen), static_cast<int>(out.len));
    return kErrInvalid;
  }
  if (const int ret = VersionCheck(RecordOf<ModeRenderInputParams>(in)); ret != kOk) return ret;
  return VersionCheck(RecordOf<HwConfigOutputParams>(out));
}

int ZelTarnImpl::AskModeParser(tarn::ZelOps op, const ModeRenderInputParams& request,
                               const char* function, ParserRecords* records) {
  ConvertModeRenderInputParams(request, &records->request);
  const tarn::TarnPayload input = tarn::Wrap(&records->request);
  tarn::TarnPayload output = tarn::Wrap(&records->answer);

  const int ret = mode_parser_intf_->ProcessOps(op, input, &output);
  if (ret == kOk) {
    ZEL_LOGI_AS(
        2, function, "Successfully with mode (gamut %d, gamma %d, intent %d), output Hw configs %d",
        static_cast<int>(request.mode.gamut), static_cast<int>(request.mode.gamma),
        static_cast<int>(request.mode.intent), static_cast<int>(records->answer.payloads.size()));
  }
  return ret;
}

}  // namespace velaricolor
