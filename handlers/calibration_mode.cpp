// SPDX-License-Identifier: Apache-2.0
#include "plugin/log.h"
#include "plugin/zel_tarn_impl.h"

namespace velaricolor {

// A notification: the envelope's address is a value here, never read through.
int ZelTarnImpl::NotifyDisplayCalibrationMode(const VcPayload& payload) {
  ZEL_LOGI(1, "Payload value: %lu", reinterpret_cast<unsigned long>(payload.payload));
  return kOk;
}

}  // namespace velaricolor
