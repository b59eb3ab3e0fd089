// SPDX-License-Identifier: Apache-2.0
#include "interface/vc_post_blend_interface.h"
#include "plugin/log.h"
#include "plugin/zel_tarn_impl.h"

extern "C" __attribute__((visibility("default"))) velaricolor::VcPostBlendInterface*
GetVcPostBlendInterface(int major_version, int minor_version) {
  constexpr int kMajorVersion = 2;
  constexpr int kMinorVersion = 0;
  if (major_version != kMajorVersion || minor_version != kMinorVersion) {
    ZEL_LOGI(2, "Invalid major_version %d minor_version %d", major_version, minor_version);
    return nullptr;
  }
  ZEL_LOGI(1, "ZelTarnImpl created");
  return new velaricolor::ZelTarnImpl;
}
