// The contract that all block converters share, once. A converter adds its
// record and its copy; the two gamma converters a precondition too.
#pragma once

#include <memory>

#include "convert/hw_config_payload.h"
#include "convert/make_record.h"
#include "plugin/log.h"
#include "plugin/zel_tarn_impl.h"

namespace velaricolor {

// Converts the typed record of `in` into that of `out`, in place where `out` has
// one already (of the same block: its owner made it for the same name), and logs
// under `function`. `out` bears the block's name, found by it or made with it. Up to
// and including the precondition a refusal leaves `out` as it was.
//   precondition(from)  0, or the result of the refused call
//   make()              a new record in shared ownership, blank but for what copy fills
//   copy(from, to)      the block's fields; `enable` has been copied
template <template <typename> class Config, typename Precondition, typename Make, typename Copy>
int ConvertBlock(const char* function, const tarn::HwConfigPayload& in,
                 velaricolor::HwConfigPayload* out, Precondition precondition, Make make,
                 Copy copy) {
  if (out == nullptr) {
    ZEL_LOGE_AS(function, "Invalid parameters");
    return kErrInvalid;
  }
  if (const int ret = ZelTarnImpl::VersionCheck(out); ret != kOk) return ret;
  if (in.payload == nullptr) {
    ZEL_LOGE_AS(function, "Invalid parameters");
    return kErrInvalid;
  }
  const auto& from = *static_cast<const Config<tarn::LibrarySide>*>(in.payload.get());
  if (const int ret = precondition(from); ret != kOk) return ret;

  out->len = in.len;
  if (out->payload == nullptr) out->payload = make();
  auto* const to = static_cast<Config<HostSide>*>(out->payload.get());
  if (to == nullptr) {
    ZEL_LOGE_AS(function, "out_cfg is nullptr");
    return kErrInvalid;
  }
  if constexpr (requires { to->enable; }) to->enable = from.enable;
  copy(from, to);
  return kOk;
}

// The same without a precondition, with a new record of the block's type.
template <template <typename> class Config, typename Copy>
int ConvertBlock(const char* function, const tarn::HwConfigPayload& in,
                 velaricolor::HwConfigPayload* out, Copy copy) {
  return ConvertBlock<Config>(
      function, in, out, [](const auto&) { return kOk; }, MakeRecordToFill<Config<HostSide>>, copy);
}

}  // namespace velaricolor
