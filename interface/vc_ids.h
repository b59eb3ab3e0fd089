// Ids of the properties and operations that the host may send.
#pragma once

#include <cstdint>

namespace velaricolor {

// Carried in VcPayload::prop. The record of each, and the exact `len` that its
// envelope must state:
//
//   id                                 call         record                        len
//   kVcModesList                       GetProperty  ColorModeList                  32
//   kVcNeedsUpdate                     GetProperty  bool                            1
//   kVcColorTransform                  SetProperty  ColorTransformMatrix           68
//   kVcPostBlendGamutHwConfig          SetProperty  PostBlendHwConfig              40
//   kVcPostBlendGammaHwConfig          SetProperty  PostBlendHwConfig              40
//   kVcPostBlendInverseGammaHwConfig   SetProperty  PostBlendHwConfig              40
//   kVcSupportToneMap                  GetProperty  bool                            1
//   kVcDisplayCalibrationMode          SetProperty  none                          any
//   kVcLtmPccConfig                    SetProperty  PccPostBlendConfig            280
//   kVcPbDitherHwConfig                GetProperty  HwConfigOutputParams           32
//   kVcSupportHwAssets                 GetProperty  std::vector<std::string>       24
//   kVcDimmingSupport                  GetProperty  bool                            1
//   kVcDimmingPcc                      SetProperty  double                          8
enum VcProperty : int32_t {
  kVcModesList = 1,
  kVcNeedsUpdate = 2,
  kVcColorTransform = 5,
  kVcPostBlendGamutHwConfig = 6,
  kVcPostBlendGammaHwConfig = 7,
  kVcPostBlendInverseGammaHwConfig = 8,
  kVcSupportToneMap = 9,
  kVcDisplayCalibrationMode = 12,
  kVcLtmPccConfig = 13,
  kVcPbDitherHwConfig = 14,
  kVcSupportHwAssets = 2048,
  kVcDimmingSupport = 2054,
  kVcDimmingPcc = 2055,
};

// Ids that a host may send to any plug-in of this family and that this one
// does not implement: answered as unsupported (-95). Any other id without a
// handler is invalid (-22).
inline constexpr int32_t kVcFirstOptionalProperty = 513;
inline constexpr int32_t kVcLastOptionalProperty = 1023;

// Operations of ProcessOps. Both take a ModeRenderInputParams (len 2912) and
// fill a HwConfigOutputParams (len 32).
enum VcOps : int32_t {
  kVcModeRenderIntent = 0,
  kVcModeSwAssets = 1,
};

}  // namespace velaricolor
