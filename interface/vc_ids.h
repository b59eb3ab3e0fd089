// SPDX-License-Identifier: Apache-2.0

// Ids of the properties and operations that the host may send.
#pragma once

#include <cstdint>

namespace velaricolor {

// Carried in VcPayload::prop. The table has the record of each, the exact `len` for
// its envelope, and the `version` that the record must have (-: it has none, or the
// plug-in doesn't look at it):
//
//   id                                 record                     len  version
//   GetProperty fills
//   kVcModesList                       ColorModeList               32       96
//   kVcNeedsUpdate                     bool                         1        -
//   kVcSupportToneMap                  bool                         1        -
//   kVcPbDitherHwConfig                HwConfigOutputParams        32       32
//   kVcSupportHwAssets                 std::vector<std::string>    24        -
//   kVcDimmingSupport                  bool                         1        -
//   SetProperty reads
//   kVcColorTransform                  ColorTransformMatrix        68       68
//   kVcPostBlendGamutHwConfig          PostBlendHwConfig           40        -
//   kVcPostBlendGammaHwConfig          PostBlendHwConfig           40        -
//   kVcPostBlendInverseGammaHwConfig   PostBlendHwConfig           40        -
//   kVcDisplayCalibrationMode          none                       any        -
//   kVcLtmPccConfig                    PccPostBlendConfig         280        -
//   kVcDimmingPcc                      double                       8        -
enum VcProperty : int32_t {
  // The modes, replacing what the record held; its `version` stays.
  kVcModesList = 1,
  // Whether the colour transform, the LTM matrix or dimming was set since the last
  // render intent. Reading does not clear it, nor do software assets.
  kVcNeedsUpdate = 2,
  kVcColorTransform = 5,
  // The plug-in keeps dimensions and passes them on to the mode parser, whose result
  // comes back. It keeps them even if the parser refuses them. Until a host sets others,
  // the gamma and inverse-gamma blocks have exactly that many entries.
  kVcPostBlendGamutHwConfig = 6,
  kVcPostBlendGammaHwConfig = 7,
  kVcPostBlendInverseGammaHwConfig = 8,
  kVcSupportToneMap = 9,  // always false
  // A notification: `payload` is a value that is logged, never an address.
  kVcDisplayCalibrationMode = 12,
  kVcLtmPccConfig = 13,
  // The panel's global dither blocks, updated in the record by name. If the parser
  // fails, nothing is written. If a block can't be converted (-22), those before it
  // have been written.
  kVcPbDitherHwConfig = 14,
  // Names of the blocks whose table dimensions a host may set. They replace the list.
  kVcSupportHwAssets = 2048,
  kVcDimmingSupport = 2054,  // always true
  // Factor on the final PCC matrix, 1.0 until set. Any value is used as it is.
  kVcDimmingPcc = 2055,
};

// Ids from the first to the last that this plug-in does not implement are answered as
// unsupported (-95); other plug-ins for the same host may implement them. Any other id
// without a handler is invalid (-22).
inline constexpr int32_t kVcFirstOptionalProperty = 513;
inline constexpr int32_t kVcLastOptionalProperty = 1023;

// Operations of ProcessOps. Both take a ModeRenderInputParams (len and version
// 2912) and fill a HwConfigOutputParams (len and version 32).
enum VcOps : int32_t {
  // A mode's hardware blocks, with the colour state folded into the PCC block.
  kVcModeRenderIntent = 0,
  // A mode's software assets, as the parser gives them.
  kVcModeSwAssets = 1,
};

}  // namespace velaricolor
