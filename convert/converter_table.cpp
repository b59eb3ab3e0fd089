// SPDX-License-Identifier: Apache-2.0
#include "plugin/block_names.h"
#include "plugin/zel_tarn_impl.h"

namespace velaricolor {

ZelTarnImpl::HwConfigConverters ZelTarnImpl::MakeConverterTable() {
  return {
      {kPostBlendGamut, &ZelTarnImpl::ConvertPostBlendGamutPayload},
      {kPostBlendIGC, &ZelTarnImpl::ConvertPostBlendInvGammaPayload},
      {kPostBlendGC, &ZelTarnImpl::ConvertPostBlendGammaPayload},
      {kPostBlendPCC, &ZelTarnImpl::ConvertPostBlendPCCPayload},
      {kPostBlendPa, &ZelTarnImpl::ConvertPostBlendPaPayload},
      {kPostBlendDither, &ZelTarnImpl::ConvertPostBlendDitherPayload},
      {kPostBlendPaDither, &ZelTarnImpl::ConvertPostBlendPaDitherPayload},
      {kPostBlendHdrBlob, &ZelTarnImpl::ConvertPostBlendHdrBlobPayload},
      {kPostBlendGameBlob, &ZelTarnImpl::ConvertPostBlendGameBlobPayload},
      {kPostBlendDE, &ZelTarnImpl::ConvertPostBlendDEPayload},
  };
}

}  // namespace velaricolor
