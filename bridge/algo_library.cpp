// SPDX-License-Identifier: Apache-2.0
#include "bridge/factory_symbol.h"
#include "plugin/log.h"
#include "plugin/zel_tarn_impl.h"

namespace velaricolor {

int ZelTarnImpl::LoadTarnAlgoLib(const std::string& arg) {
  if (!algo_lib_handle_.Open(algo_lib_name_)) {
    ZEL_LOGI(1, "Failed to load = %s", algo_lib_name_.c_str());
    return kErrNoLibrary;
  }
  const auto factory = FindFactory<tarn::TarnAlgoFactory>(algo_lib_handle_, algo_lib_name_,
                                                          algo_intf_symbol_, __func__);
  if (factory == nullptr) return kErrInvalid;
  algo_intf_.reset(factory(tarn::kTarnMajorVersion, tarn::kTarnMinorVersion));
  if (algo_intf_ == nullptr) {
    ZEL_LOGE("Failed to get tarn algo intf from %s", algo_lib_name_.c_str());
    return kErrInvalid;
  }

  if (const int ret = algo_intf_->Init(arg); ret != kOk) {
    ZEL_LOGE("Failed to initialize tarn algo, ret = %d", ret);
    algo_intf_.reset();
    return kErrInvalid;
  }
  algo_init_done_ = true;
  return kOk;
}

}  // namespace velaricolor
