// SPDX-License-Identifier: Apache-2.0
#include <algorithm>

#include "plugin/checks.h"
#include "plugin/zel_tarn_impl.h"

namespace velaricolor {

int ZelTarnImpl::GetModesList(VcPayload* payload) {
  if (!Carries<ColorModeList>(*payload)) return RefuseLength<ColorModeList>(*payload, __func__);
  auto* const list = RecordOf<ColorModeList>(*payload);
  if (const int ret = VersionCheck(list); ret != kOk) return ret;
  // Mode by mode, for libc++ 14 leaks what a copy constructor of a list had made
  // when it runs out of memory.
  list->modes.resize(color_mode_list_.modes.size());
  std::copy(color_mode_list_.modes.begin(), color_mode_list_.modes.end(), list->modes.begin());
  return kOk;
}

}  // namespace velaricolor
