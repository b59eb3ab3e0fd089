// SPDX-License-Identifier: Apache-2.0
#include "plugin/zel_tarn_impl.h"

#include "convert/gamut_gamma_config.h"

namespace velaricolor {

namespace {

PostBlendHwConfig Dimensions(uint32_t version, const zeltarn::TableDimensions& table) {
  return {.version = version,
          .num_of_entries = table.num_of_entries,
          .bit_depth = table.bit_depth,
          .attributes = {}};
}

// Neither the library's result nor what it throws can keep the object, or the other
// library, from ending.
void TellToDeInit(tarn::LibraryIntf* library) {
  if (library == nullptr) return;
  try {
    library->DeInit();
  } catch (...) {  // NOLINT(bugprone-empty-catch)
  }
}

}  // namespace

ZelTarnImpl::ZelTarnImpl()
    : set_prop_funcs_{
          {kVcColorTransform, &ZelTarnImpl::SetColorTransform},
          {kVcPostBlendGamutHwConfig, &ZelTarnImpl::SetPostBlendGamutConfig},
          {kVcPostBlendGammaHwConfig, &ZelTarnImpl::SetPostBlendGammaConfig},
          {kVcPostBlendInverseGammaHwConfig, &ZelTarnImpl::SetPostBlendInvGammaConfig},
          {kVcDisplayCalibrationMode, &ZelTarnImpl::NotifyDisplayCalibrationMode},
          {kVcLtmPccConfig, &ZelTarnImpl::SetLtmPccConfig},
          {kVcDimmingPcc, &ZelTarnImpl::SetDimmingPcc},
      },
      get_prop_funcs_{
          {kVcModesList, &ZelTarnImpl::GetModesList},
          {kVcNeedsUpdate, &ZelTarnImpl::GetNeedsUpdate},
          {kVcSupportToneMap, &ZelTarnImpl::GetSupportTonemap},
          {kVcPbDitherHwConfig, &ZelTarnImpl::GetPbDitheHwConfig},
          {kVcSupportHwAssets, &ZelTarnImpl::GetSupportHwAssets},
          {kVcDimmingSupport, &ZelTarnImpl::GetDimmingSupport},
      },
      ops_funcs_{
          {kVcModeRenderIntent, &ZelTarnImpl::ProcessModeRenderIntent},
          {kVcModeSwAssets, &ZelTarnImpl::ProcessModeSwAssets},
      },
      hw_config_converters_(MakeConverterTable()),
      inverse_gamma_hw_config_(Dimensions(GammaPostBlendConfig::kVersion, zeltarn::kDefaultInverseGamma)),
      gamma_hw_config_(Dimensions(GammaPostBlendConfig::kVersion, zeltarn::kDefaultGamma)),
      gamut_hw_config_(Dimensions(GamutPostBlendConfig::kVersion, zeltarn::kDefaultGamut)) {}

// An object's code lives in its library, which the handles close only later.
ZelTarnImpl::~ZelTarnImpl() { ReleaseLibraryObjects(); }

int ZelTarnImpl::DeInit() {
  const std::lock_guard lock(lock_);
  TellToDeInit(mode_parser_intf_.get());
  TellToDeInit(algo_intf_.get());
  algo_init_done_ = false;
  init_done_ = false;
  return kOk;
}

}  // namespace velaricolor
