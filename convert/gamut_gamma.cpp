// SPDX-License-Identifier: Apache-2.0
#include <cstdint>
#include <memory>
#include <vector>

#include "convert/converter.h"
#include "convert/gamut_gamma_config.h"
#include "plugin/checks.h"

namespace velaricolor {

namespace {

// Both gamma blocks: three lists of exactly `entries`, as the host dimensioned
// the block, then what `copy_rest` adds.
template <typename CopyRest>
int ConvertGammaLists(const char* function, uint32_t entries, const tarn::HwConfigPayload& in,
                      velaricolor::HwConfigPayload* out, CopyRest copy_rest) {
  const auto precondition = [=](const tarn::GammaPostBlendConfig& from) {
    if (const int ret = CheckGammaEntries(entries, function); ret != kOk) return ret;
    for (const auto* list : {&from.c0, &from.c1, &from.c2}) {
      if (list->size() >= entries) continue;
      ZEL_LOGE_AS(function, "Invalid parameters");
      return kErrInvalid;
    }
    return kOk;
  };
  const auto make = [=] { return std::make_shared<GammaPostBlendConfig>(entries); };
  const auto make_room = [=](const auto& /*from*/, GammaPostBlendConfig* to) {
    for (auto* list : {&to->c0, &to->c1, &to->c2}) MakeRoomFor(entries, list);
  };
  const auto fill = [=](const std::vector<uint32_t>& from, std::vector<uint32_t>* to) {
    to->assign(from.data(), from.data() + entries);
  };
  return ConvertBlock<zeltarn::layout::GammaPostBlendConfig>(
      function, in, out, precondition, make, make_room,
      [&](const tarn::GammaPostBlendConfig& from, GammaPostBlendConfig* to) {
        fill(from.c0, &to->c0);
        fill(from.c1, &to->c1);
        fill(from.c2, &to->c2);
        copy_rest(from, to);
      });
}

}  // namespace

int ZelTarnImpl::ConvertPostBlendGamutPayload(const tarn::HwConfigPayload& in,
                                              velaricolor::HwConfigPayload* out) {
  return ConvertBlock<zeltarn::layout::GamutPostBlendConfig>(
      __func__, in, out, [](const auto& from, auto* to) { to->lut_data = from.lut_data; });
}

int ZelTarnImpl::ConvertPostBlendInvGammaPayload(const tarn::HwConfigPayload& in,
                                                 velaricolor::HwConfigPayload* out) {
  return ConvertGammaLists(__func__, inverse_gamma_hw_config_.num_of_entries, in, out,
                           [](const auto& from, auto* to) {
                             to->aux_flag = from.aux_flag;
                             to->aux_value = from.aux_value;
                           });
}

// Gamma doesn't carry the auxiliary pair.
int ZelTarnImpl::ConvertPostBlendGammaPayload(const tarn::HwConfigPayload& in,
                                              velaricolor::HwConfigPayload* out) {
  return ConvertGammaLists(__func__, gamma_hw_config_.num_of_entries, in, out,
                           [](const auto& /*from*/, auto* /*to*/) {});
}

}  // namespace velaricolor
