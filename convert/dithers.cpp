// SPDX-License-Identifier: Apache-2.0
#include "convert/converter.h"
#include "convert/dither_config.h"

namespace velaricolor {

int ZelTarnImpl::ConvertPostBlendDitherPayload(const tarn::HwConfigPayload& in,
                                               velaricolor::HwConfigPayload* out) {
  return ConvertBlock<zeltarn::layout::DitherPostBlendConfig>(
      __func__, in, out, [](const auto& from, auto* to) { to->params = from.params; });
}

int ZelTarnImpl::ConvertPostBlendPaDitherPayload(const tarn::HwConfigPayload& in,
                                                 velaricolor::HwConfigPayload* out) {
  return ConvertBlock<zeltarn::layout::PaDitherPostBlendConfig>(
      __func__, in, out, [](const auto& from, auto* to) { to->words = from.words; });
}

}  // namespace velaricolor
