#include "plugin/checks.h"
#include "plugin/zel_tarn_impl.h"

namespace velaricolor {

int ZelTarnImpl::GetModesList(VcPayload* payload) {
  if (!Carries<ColorModeList>(*payload)) return RefuseLength<ColorModeList>(*payload, __func__);
  auto* const list = RecordOf<ColorModeList>(*payload);
  if (const int ret = VersionCheck(list); ret != kOk) return ret;
  list->modes = color_mode_list_.modes;
  return kOk;
}

}  // namespace velaricolor
