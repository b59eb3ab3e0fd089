// SPDX-License-Identifier: Apache-2.0

// The three entry points: lock, check, look the id up, hand over.

#include "plugin/log.h"
#include "plugin/zel_tarn_impl.h"

namespace velaricolor {

namespace {

// Refusals stay out of line, so that they cost the accepted calls nothing.

[[gnu::cold, gnu::noinline]] int RefusePropertyCall(const char* function, bool init_done,
                                                    const VcPayload* payload) {
  const uint32_t version = payload == nullptr ? 0 : payload->version;
  ZEL_LOGE_AS(function, "Invalid params : init_done_ %d, actual version %zd exp version %d",
              static_cast<int>(init_done), static_cast<ssize_t>(version),
              static_cast<int>(VcPayload::kVersion));
  return kErrInvalid;
}

// The answer to a property without a handler.
[[gnu::cold, gnu::noinline]] int RefuseProperty(const char* function, int32_t prop) {
  const void* const no_handler = nullptr;
  if (prop >= kVcFirstOptionalProperty && prop <= kVcLastOptionalProperty) {
    ZEL_LOGI_AS(2, function, "Unsupported prop %d, function %pK", prop, no_handler);
    return kErrUnsupported;
  }
  ZEL_LOGE_AS(function, "Invalid prop %d, function %pK", prop, no_handler);
  return kErrInvalid;
}

}  // namespace

int ZelTarnImpl::SetProperty(const VcPayload& payload) {
  const std::lock_guard lock(lock_);
  if (!init_done_ || payload.version != VcPayload::kVersion) {
    return RefusePropertyCall(__func__, init_done_, &payload);
  }
  const auto prop = static_cast<VcProperty>(payload.prop);
  const SetPropFunc handler = recent_setter_.Find(set_prop_funcs_, prop);
  if (handler == nullptr) return RefuseProperty(__func__, prop);
  return (this->*handler)(payload);
}

int ZelTarnImpl::GetProperty(VcPayload* payload) {
  const std::lock_guard lock(lock_);
  if (!init_done_ || payload == nullptr || payload->version != VcPayload::kVersion) {
    return RefusePropertyCall(__func__, init_done_, payload);
  }
  const auto prop = static_cast<VcProperty>(payload->prop);
  const GetPropFunc handler = recent_getter_.Find(get_prop_funcs_, prop);
  if (handler == nullptr) return RefuseProperty(__func__, prop);
  return (this->*handler)(payload);
}

int ZelTarnImpl::ProcessOps(VcOps op, const VcPayload& in, VcPayload* out) {
  const std::lock_guard lock(lock_);
  ZEL_LOGI(2, "Process Ops called, op = %d", static_cast<int>(op));
  if (out == nullptr || !init_done_) {
    ZEL_LOGE("Invalid params init_done_ %d output %pK", static_cast<int>(init_done_),
             static_cast<const void*>(out));
    return kErrInvalid;
  }
  const auto handler = ops_funcs_.find(op);
  if (handler == ops_funcs_.end()) {
    ZEL_LOGE("Invalid ops %d", static_cast<int>(op));
    return kErrUnsupported;
  }
  return (this->*handler->second)(in, out);
}

}  // namespace velaricolor
