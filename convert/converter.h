// SPDX-License-Identifier: Apache-2.0

// The contract that all block converters share. Each converter adds its record and its
// copy; the two gamma converters also add a precondition.
#pragma once

#include <memory>
#include <utility>

#include "convert/hw_config_payload.h"
#include "convert/make_record.h"
#include "plugin/checks.h"
#include "plugin/log.h"
#include "plugin/zel_tarn_impl.h"

namespace velaricolor {

// Capacity for `size` elements. Growing stays out of line, so that it costs nothing
// where there is room.
template <typename List>
[[gnu::cold, gnu::noinline]] void Grow(size_t size, List* list) {
  list->reserve(size);
}
template <typename List>
void MakeRoomFor(size_t size, List* list) {
  if (list->capacity() < size) Grow(size, list);
}

// Converts the typed record of `in` into that of `out`, in place where `out` has
// one already (of the same block: its owner made it for the same name), and logs
// under `function`. `out` has the block's name. If the precondition or a check
// before it refuses, `out` stays as it was. It also does when memory runs out: a new
// record joins `out` only when it is filled, and a record that is kept gets room before
// the first write.
//   precondition(from)   0, or the result of the refused call
//   make()               a new record in shared ownership, blank but for what copy fills
//   make_room(from, to)  capacity in a record that is kept
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

  const auto fill = [&](Config<HostSide>* to) {
    if constexpr (requires { to->enable; }) to->enable = IsSet(from.enable);
    copy(from, to);
  };
  if (auto* const kept = static_cast<Config<HostSide>*>(out->payload.get()); kept != nullptr) {
    make_room(from, kept);
    out->len = in.len;
    fill(kept);
    return kOk;
  }
  std::shared_ptr<Config<HostSide>> made = make();
  if (made == nullptr) {
    out->len = in.len;
    ZEL_LOGE_AS(function, "out_cfg is nullptr");
    return kErrInvalid;
  }
  fill(made.get());
  out->len = in.len;
  out->payload = std::move(made);
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
