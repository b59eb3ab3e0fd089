#include "plugin/names.h"
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

// A parser answers with the same blocks mode after mode, so the entry used last
// at that place is mostly the one: one comparison instead of a search.
ZelTarnImpl::HwConfigConverter ZelTarnImpl::FindConverter(const std::string& hw_block,
                                                          size_t place) {
  auto& recent = recent_converters_[place % recent_converters_.size()];
  if (recent->first != hw_block) {
    const auto entry = hw_config_converters_.find(hw_block);
    if (entry == hw_config_converters_.end()) return nullptr;
    recent = entry;
  }
  return recent->second;
}

}  // namespace velaricolor
