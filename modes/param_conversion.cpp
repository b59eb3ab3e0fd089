// SPDX-License-Identifier: Apache-2.0

// Conversion of the mode operations' records between the two namespaces.

#include <algorithm>
#include <utility>

#include "convert/find_block.h"
#include "plugin/log.h"
#include "plugin/zel_tarn_impl.h"

namespace velaricolor {

int ZelTarnImpl::ConvertModeRenderInputParams(const velaricolor::ModeRenderInputParams& in,
                                              tarn::ModeRenderInputParams* out) {
  if (out == nullptr) {
    ZEL_LOGE("Invalid parameters");
    return kErrInvalid;
  }
  out->hw_assets = in.hw_assets;
  out->mode.gamut = in.mode.gamut;
  out->mode.gamma = in.mode.gamma;
  out->mode.intent = in.mode.intent;
  out->mode.hw_assets = in.mode.hw_assets;
  // The label isn't part of a request: the three ids name the mode.
  out->aux_enable = in.aux_enable;
  out->aux_data = in.aux_data;
  out->aux_word = in.aux_word;
  return kOk;
}

int ZelTarnImpl::ConvertHwConfigOutputParams(const tarn::HwConfigOutputParams& in,
                                             velaricolor::HwConfigOutputParams* out) {
  if (out == nullptr) {
    ZEL_LOGE("Invalid parameters");
    return kErrInvalid;
  }
  if (const int ret = VersionCheck(out); ret != kOk) return ret;

  for (size_t place = 0; place < in.payloads.size(); ++place) {
    const tarn::HwConfigPayload& payload = in.payloads[place];
    auto& recent = recent_converters_[std::min(place, recent_converters_.size() - 1)];
    const HwConfigConverter converter = recent.Find(hw_config_converters_, payload.hw_block);
    if (converter == nullptr) return kErrInvalid;
    HwConfigPayload* const known = FindBlock(out, payload.hw_block);
    const int ret = known != nullptr ? (this->*converter)(payload, known)
                                     : ConvertNew(converter, payload, in.payloads.size(), out);
    if (ret != kOk) {
      ZEL_LOGE("Failed to convert for %s from tarn to velari namespace", payload.hw_block.c_str());
      return ret;
    }
  }
  return kOk;
}

// Converts into an entry of its own, which joins the list once it is complete.
int ZelTarnImpl::ConvertNew(HwConfigConverter converter, const tarn::HwConfigPayload& payload,
                            size_t answered, velaricolor::HwConfigOutputParams* out) {
  HwConfigPayload fresh = {.hw_block = payload.hw_block};
  if (const int ret = (this->*converter)(payload, &fresh); ret != kOk) return ret;

  // Room for all that can be new in this answer at once: a name that has a converter.
  if (out->payloads.size() == out->payloads.capacity()) {
    out->payloads.reserve(out->payloads.size() + std::min(answered, hw_config_converters_.size()));
  }
  out->payloads.push_back(std::move(fresh));
  return kOk;
}

}  // namespace velaricolor
