// The contract that all block converters share, once. A converter adds its
// record and its copy; the two gamma converters a precondition too.
#pragma once

#include <memory>
#include <utility>

#include "convert/hw_config_payload.h"
#include "convert/make_record.h"
#include "plugin/checks.h"
#include "plugin/log.h"
#include "plugin/zel_tarn_impl.h"

namespace velaricolor {

// Converts the typed record of `in` into that of `out`, in place where `out` has
// one already (of the same block: its owner made it for the same name), and logs
// under `function`. `out` bears the block's name, found by it or made with it. Up to
// and including the precondition a refusal leaves `out` as it was, and so does running
// out of memory: `make` and `make_room` do all that needs some, before the first write.
//   precondition(from)   0, or the result of the refused call
//   make()               a new record in shared ownership, blank but for what copy fills
//   make_room(from, to)  capacity for what copy fills
//   copy(from, to)       the block's fields; `enable` has been copied
template <template <typename> class Config, typename Precondition, typename Make, typename MakeRoom,
          typename Copy>
int ConvertBlock(const char* function, const tarn::HwConfigPayload& in,
                 velaricolor::HwConfigPayload* out, Precondition precondition, Make make,
                 MakeRoom make_room, Copy copy) {
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

  std::shared_ptr<void> made;
  if (out->payload == nullptr) made = make();
  auto* const to = static_cast<Config<HostSide>*>(made ? made.get() : out->payload.get());
  if (to == nullptr) {
    out->len = in.len;
    ZEL_LOGE_AS(function, "out_cfg is nullptr");
    return kErrInvalid;
  }
  make_room(from, to);

  out->len = in.len;
  if (made) out->payload = std::move(made);
  if constexpr (requires { to->enable; }) to->enable = IsSet(from.enable);
  copy(from, to);
  return kOk;
}

// The same for a record of fixed size, without a precondition.
template <template <typename> class Config, typename Copy>
int ConvertBlock(const char* function, const tarn::HwConfigPayload& in,
                 velaricolor::HwConfigPayload* out, Copy copy) {
  return ConvertBlock<Config>(
      function, in, out, [](const auto& /*from*/) { return kOk; },
      MakeRecordToFill<Config<HostSide>>, [](const auto& /*from*/, auto* /*to*/) {}, copy);
}

}  // namespace velaricolor
