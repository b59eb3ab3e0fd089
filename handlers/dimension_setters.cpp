// SPDX-License-Identifier: Apache-2.0

// The host's dimensions of the gamut, gamma and inverse-gamma tables: kept for
// the converters and passed on to the mode parser.

#include <utility>

#include "convert/gamut_gamma_config.h"
#include "interface/payload.h"
#include "plugin/checks.h"
#include "plugin/zel_tarn_impl.h"

namespace velaricolor {

struct ZelTarnImpl::DimensionBlock {
  const char* function;
  PostBlendHwConfig ZelTarnImpl::*config;
  uint32_t version;  // of the block's typed record, as the parser expects it
  tarn::ZelProperty parser_prop;
  bool bounded;  // 1 to zeltarn::kMaxGammaEntries; else any count
};

int ZelTarnImpl::SetPostBlendGamutConfig(const VcPayload& payload) {
  return SetDimensions({.function = __func__,
                        .config = &ZelTarnImpl::gamut_hw_config_,
                        .version = GamutPostBlendConfig::kVersion,
                        .parser_prop = tarn::kZelPostBlendGamutHwConfig,
                        .bounded = false},
                       payload);
}

int ZelTarnImpl::SetPostBlendGammaConfig(const VcPayload& payload) {
  return SetDimensions({.function = __func__,
                        .config = &ZelTarnImpl::gamma_hw_config_,
                        .version = GammaPostBlendConfig::kVersion,
                        .parser_prop = tarn::kZelPostBlendGammaHwConfig,
                        .bounded = true},
                       payload);
}

int ZelTarnImpl::SetPostBlendInvGammaConfig(const VcPayload& payload) {
  return SetDimensions({.function = __func__,
                        .config = &ZelTarnImpl::inverse_gamma_hw_config_,
                        .version = GammaPostBlendConfig::kVersion,
                        .parser_prop = tarn::kZelPostBlendInverseGammaHwConfig,
                        .bounded = true},
                       payload);
}

int ZelTarnImpl::SetDimensions(const DimensionBlock& block, const VcPayload& payload) {
  if (!Carries<PostBlendHwConfig>(payload)) {
    return RefuseLength<PostBlendHwConfig>(payload, block.function);
  }
  const auto& wanted = *RecordOf<const PostBlendHwConfig>(payload);
  if (block.bounded) {
    const int ret = CheckGammaEntries(wanted.num_of_entries, block.function);
    if (ret != kOk) return ret;
  }

  // Copies first, the parser's only where there is one: running out of memory changes
  // nothing. Lists are assigned, for libc++ 14 leaks what a copy constructor had made
  // when it ran out.
  zeltarn::layout::HwAttributes attributes;
  attributes = wanted.attributes;
  tarn::PostBlendHwConfig forwarded = {.version = block.version,
                                       .num_of_entries = wanted.num_of_entries,
                                       .bit_depth = wanted.bit_depth,
                                       .attributes = {}};
  if (mode_parser_intf_ != nullptr) forwarded.attributes = wanted.attributes;
  PostBlendHwConfig& config = this->*block.config;
  config.num_of_entries = wanted.num_of_entries;
  config.bit_depth = wanted.bit_depth;
  config.attributes = std::move(attributes);

  if (mode_parser_intf_ == nullptr) return kOk;
  return mode_parser_intf_->SetProperty(tarn::Wrap(&forwarded, block.parser_prop));
}

}  // namespace velaricolor
