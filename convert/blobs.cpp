// SPDX-License-Identifier: Apache-2.0
#include "convert/blob_config.h"
#include "convert/converter.h"

namespace velaricolor {

namespace {

template <template <typename> class Config>
int ConvertBlob(const char* function, const tarn::HwConfigPayload& in,
                velaricolor::HwConfigPayload* out) {
  return ConvertBlock<Config>(
      function, in, out, [](const auto& /*from*/) { return kOk; },
      MakeRecordToFill<Config<HostSide>>,
      [](const auto& from, auto* to) { MakeRoomFor(from.blob.size(), &to->blob); },
      [](const auto& from, auto* to) { to->blob = from.blob; });
}

}  // namespace

int ZelTarnImpl::ConvertPostBlendHdrBlobPayload(const tarn::HwConfigPayload& in,
                                                velaricolor::HwConfigPayload* out) {
  return ConvertBlob<zeltarn::layout::HdrBlobPostBlendConfig>(__func__, in, out);
}

int ZelTarnImpl::ConvertPostBlendGameBlobPayload(const tarn::HwConfigPayload& in,
                                                 velaricolor::HwConfigPayload* out) {
  return ConvertBlob<zeltarn::layout::GameBlobPostBlendConfig>(__func__, in, out);
}

}  // namespace velaricolor
