// SPDX-License-Identifier: Apache-2.0
#include <sys/types.h>

#include <string>
#include <vector>

#include "plugin/block_names.h"
#include "plugin/checks.h"
#include "plugin/log.h"
#include "plugin/zel_tarn_impl.h"

namespace velaricolor {

namespace {

int AnswerBool(bool answer, const VcPayload& payload, const char* function) {
  if (!Carries<bool>(payload)) return RefuseLength<bool>(payload, function);
  *RecordOf<bool>(payload) = answer;
  return kOk;
}

}  // namespace

int ZelTarnImpl::GetNeedsUpdate(VcPayload* payload) {
  return AnswerBool(needs_update_, *payload, __func__);
}

int ZelTarnImpl::GetSupportTonemap(VcPayload* payload) {
  return AnswerBool(false, *payload, __func__);
}

int ZelTarnImpl::GetDimmingSupport(VcPayload* payload) {
  return AnswerBool(true, *payload, __func__);
}

// The blocks whose tables the host may dimension.
int ZelTarnImpl::GetSupportHwAssets(VcPayload* payload) {
  using Names = std::vector<std::string>;
  if (!Carries<Names>(*payload)) {
    // The one refusal that prints both lengths alike.
    ZEL_LOGE("len of Input params act %zd exp %zd", static_cast<ssize_t>(payload->len),
             static_cast<ssize_t>(sizeof(Names)));
    return kErrInvalid;
  }
  auto* const names = RecordOf<Names>(*payload);
  names->clear();  // releases the host's strings, where assigning would keep their room
  names->assign({kPostBlendGamut, kPostBlendIGC, kPostBlendGC});
  return kOk;
}

}  // namespace velaricolor
