#include "convert/blob_config.h"
#include "convert/converter.h"

namespace velaricolor {

int ZelTarnImpl::ConvertPostBlendHdrBlobPayload(const tarn::HwConfigPayload& in,
                                                velaricolor::HwConfigPayload* out) {
  return ConvertBlock<zeltarn::layout::HdrBlobPostBlendConfig>(
      __func__, in, out, [](const auto& from, auto* to) { to->blob = from.blob; });
}

int ZelTarnImpl::ConvertPostBlendGameBlobPayload(const tarn::HwConfigPayload& in,
                                                 velaricolor::HwConfigPayload* out) {
  return ConvertBlock<zeltarn::layout::GameBlobPostBlendConfig>(
      __func__, in, out, [](const auto& from, auto* to) { to->blob = from.blob; });
}

}  // namespace velaricolor
