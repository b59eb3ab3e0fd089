#include "modes/mode_op.h"
#include "plugin/checks.h"
#include "plugin/zel_tarn_impl.h"

namespace velaricolor {

// No colour step follows, and the parser's result is the host's.
int ZelTarnImpl::ProcessModeSwAssets(const VcPayload& in, VcPayload* out) {
  constexpr ModeOp kOp = {.parser_op = tarn::kZelModeSwAssets,
                          .function = "ProcessModeSwAssets",
                          .name = "kVcModeSwAssets"};
  if (mode_parser_intf_ == nullptr) return kOk;
  if (const int ret = CheckModeRecords(kOp, in, *out); ret != kOk) return ret;
  return RunModeOp(kOp, *RecordOf<ModeRenderInputParams>(in), RecordOf<HwConfigOutputParams>(*out));
}

}  // namespace velaricolor
