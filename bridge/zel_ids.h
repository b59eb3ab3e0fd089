// SPDX-License-Identifier: Apache-2.0

// Ids of the properties and operations that the plug-in sends to the run-time
// libraries. They are not the host's ids, although some numbers coincide.
#pragma once

#include <cstdint>

namespace tarn {

// Carried in TarnPayload::prop, to the mode parser only:
//
//   id                                  call         record                len
//   kZelModesList                       GetProperty  ColorModeList          32
//   kZelPostBlendGamutHwConfig          SetProperty  PostBlendHwConfig      40
//   kZelPostBlendGammaHwConfig          SetProperty  PostBlendHwConfig      40
//   kZelPostBlendInverseGammaHwConfig   SetProperty  PostBlendHwConfig      40
//   kZelPbDitherHwConfig                GetProperty  HwConfigOutputParams   32
enum ZelProperty : uint32_t {
  kZelModesList = 1,
  kZelPostBlendGamutHwConfig = 6,
  kZelPostBlendGammaHwConfig = 7,
  kZelPostBlendInverseGammaHwConfig = 8,
  kZelPbDitherHwConfig = 12,
};

//   id                    library    in                            out
//   kZelModeRenderIntent  parser     ModeRenderInputParams (2912)  HwConfigOutputParams (32)
//   kZelModeSwAssets      parser     ModeRenderInputParams (2912)  HwConfigOutputParams (32)
//   kZelPccMerge          algorithm  PccMergeInput (552)           PccMergeOutput (280)
enum ZelOps : int32_t {
  kZelModeRenderIntent = 0,
  kZelModeSwAssets = 1,
  kZelPccMerge = 2,
};

}  // namespace tarn
