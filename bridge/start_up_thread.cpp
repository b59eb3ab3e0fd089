// SPDX-License-Identifier: Apache-2.0

// The thread "zel_mode_parser", which exists only while Init waits for it.

#include <sched.h>
#include <sys/prctl.h>

#include <exception>

#include "interface/payload.h"
#include "plugin/log.h"
#include "plugin/zel_tarn_impl.h"

namespace velaricolor {

namespace {

constexpr const char* kThreadName = "zel_mode_parser";
constexpr const char* kLoggedAs = "thread_handler";

// Host and library share a layout, not a type.
void ToHost(const tarn::ColorMode& mode, ColorMode* out) {
  out->gamut = mode.gamut;
  out->gamma = mode.gamma;
  out->intent = mode.intent;
  out->hw_assets = mode.hw_assets;
  out->label = mode.label;
}

}  // namespace

void ZelTarnImpl::thread_handler(ZelTarnImpl* self, const std::string& arg) {
  if (self == nullptr) {
    ZEL_LOGE("invalid object\n");
    return;
  }

  // The host may call from a real-time thread; parsing must not run as one.
  sched_param parameter = {};
  parameter.sched_priority = sched_get_priority_min(SCHED_OTHER);
  sched_setscheduler(0, SCHED_OTHER, &parameter);
  prctl(PR_SET_NAME, kThreadName);

  const std::lock_guard lock(self->mode_parser_mutex_);
  try {
    self->StartUp(arg);
  } catch (...) {
    self->mode_parser_exception_ = std::current_exception();
  }
  self->mode_parser_done_ = true;
  self->mode_parser_cv_.notify_all();
}

// The thread's work, under mode_parser_mutex_: the parser, its modes, then the
// algorithm library, whose absence is no failure.
void ZelTarnImpl::StartUp(const std::string& arg) {
  mode_parser_status_ = mode_parser_intf_->Init(arg);
  if (mode_parser_status_ != kOk) {
    ZEL_LOGE_AS(kLoggedAs, "failed to intialize mode parser\n");
    return;
  }
  FetchModesList();
  if (mode_parser_status_ != kOk) return;

  // The library is optional: whatever leaves it, the host's Init goes on.
  int ret = kErrInvalid;
  try {
    ret = LoadTarnAlgoLib(arg);
  } catch (...) {
    algo_intf_.reset();
  }
  if (ret != kOk) ZEL_LOGI_AS(1, kLoggedAs, "Pcc merging not supported");
}

void ZelTarnImpl::FetchModesList() {
  tarn::ColorModeList fetched;
  tarn::TarnPayload envelope = tarn::Wrap(&fetched, tarn::kZelModesList);
  mode_parser_status_ = mode_parser_intf_->GetProperty(&envelope);
  if (mode_parser_status_ != kOk) {
    ZEL_LOGE_AS(kLoggedAs, "Failed to get mode list, ret %d", mode_parser_status_);
  }
  if (mode_parser_status_ != kOk || fetched.modes.empty()) {
    ZEL_LOGI_AS(1, kLoggedAs, "modes sz %d parsing status %d\n",
                static_cast<int>(fetched.modes.size()), mode_parser_status_);
    return;
  }
  color_mode_list_.modes.resize(fetched.modes.size());
  for (size_t i = 0; i < fetched.modes.size(); ++i) {
    ToHost(fetched.modes[i], &color_mode_list_.modes[i]);
  }
}

}  // namespace velaricolor
