// SPDX-License-Identifier: Apache-2.0
#include <exception>
#include <system_error>
#include <utility>

#include "bridge/factory_symbol.h"
#include "plugin/log.h"
#include "plugin/zel_tarn_impl.h"

namespace velaricolor {

int ZelTarnImpl::Init(const std::string& arg) {
  const std::lock_guard lock(lock_);

  // An earlier Init's objects go before their libraries do, and the modes with
  // the parser that delivered them.
  ReleaseLibraryObjects();
  color_mode_list_.modes.clear();

  if (!mode_parser_lib_handle_.Open(mode_parser_lib_name_)) {
    ZEL_LOGE("Failed to load = %s", mode_parser_lib_name_.c_str());
    return kErrInvalid;
  }
  const auto factory = FindFactory<tarn::ModeParserFactory>(
      mode_parser_lib_handle_, mode_parser_lib_name_, mode_parser_intf_symbol_, __func__);
  if (factory == nullptr) return kErrInvalid;
  mode_parser_intf_.reset(factory(tarn::kTarnMajorVersion, tarn::kTarnMinorVersion));
  if (mode_parser_intf_ == nullptr) {
    ZEL_LOGE("Failed to get mode parser intf from %s", mode_parser_lib_name_.c_str());
    return kErrInvalid;
  }

  const int status = RunStartUpThread(arg);
  if (status != kOk || color_mode_list_.modes.empty()) mode_parser_intf_.reset();
  if (status != kOk) return status;

  ZEL_LOGI(1, "Get %d modes in mode list", static_cast<int>(color_mode_list_.modes.size()));
  init_done_ = true;
  return kOk;
}

// Starts the thread, waits for it and joins it. Returns its status, or -22 when
// it can't be started. Throws what the parser threw on the thread; then no library
// object and no mode is left, and the libraries stay open.
int ZelTarnImpl::RunStartUpThread(const std::string& arg) {
  mode_parser_status_ = kOk;
  mode_parser_done_ = false;
  try {
    mode_parser_thread_ = std::thread(&ZelTarnImpl::thread_handler, this, arg);
  } catch (const std::system_error&) {
    return kErrInvalid;
  } catch (...) {
    ReleaseLibraryObjects();
    throw;
  }

  {
    std::unique_lock wait(mode_parser_mutex_);
    mode_parser_cv_.wait(wait, [this] { return mode_parser_done_; });
    mode_parser_thread_.join();
  }

  if (mode_parser_exception_ != nullptr) {
    ReleaseLibraryObjects();
    color_mode_list_.modes.clear();
    std::rethrow_exception(std::exchange(mode_parser_exception_, nullptr));
  }
  return mode_parser_status_;
}

void ZelTarnImpl::ReleaseLibraryObjects() {
  mode_parser_intf_.reset();
  algo_intf_.reset();
  algo_init_done_ = false;
}

}  // namespace velaricolor
