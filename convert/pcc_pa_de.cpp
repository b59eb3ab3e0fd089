// SPDX-License-Identifier: Apache-2.0
#include "convert/converter.h"
#include "convert/pa_de_config.h"
#include "pcc/pcc_config.h"

namespace velaricolor {

int ZelTarnImpl::ConvertPostBlendPCCPayload(const tarn::HwConfigPayload& in,
                                            velaricolor::HwConfigPayload* out) {
  return ConvertBlock<zeltarn::layout::PccPostBlendConfig>(
      __func__, in, out, [](const auto& from, auto* to) { to->coeffs = from.coeffs; });
}

int ZelTarnImpl::ConvertPostBlendPaPayload(const tarn::HwConfigPayload& in,
                                           velaricolor::HwConfigPayload* out) {
  return ConvertBlock<zeltarn::layout::PaPostBlendConfig>(
      __func__, in, out, [](const auto& from, auto* to) {
        to->i_params = from.i_params;
        to->f_params = from.f_params;
        for (size_t i = 0; i < to->sub_params.size(); ++i) {
          to->sub_params[i].ints_a = from.sub_params[i].ints_a;
          to->sub_params[i].floats = from.sub_params[i].floats;
          to->sub_params[i].ints_b = from.sub_params[i].ints_b;
          to->sub_params[i].triple0 = from.sub_params[i].triple0;
          to->sub_params[i].triple1 = from.sub_params[i].triple1;
          to->sub_params[i].triple2 = from.sub_params[i].triple2;
        }
        to->tail_params = from.tail_params;
        to->tail_table = from.tail_table;
      });
}

int ZelTarnImpl::ConvertPostBlendDEPayload(const tarn::HwConfigPayload& in,
                                           velaricolor::HwConfigPayload* out) {
  return ConvertBlock<zeltarn::layout::DePostBlendConfig>(
      __func__, in, out, [](const auto& from, auto* to) { to->params = from.params; });
}

}  // namespace velaricolor
