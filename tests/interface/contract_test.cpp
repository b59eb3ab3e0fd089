// SPDX-License-Identifier: Apache-2.0

// The numbers that hosts and libraries were built with, as they know them: written out
// here, so that a changed header shows.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <utility>

#include "bridge/tarn_intf.h"
#include "convert/blob_config.h"
#include "convert/dither_config.h"
#include "convert/gamut_gamma_config.h"
#include "convert/pa_de_config.h"
#include "handlers/color_transform_matrix.h"
#include "handlers/post_blend_hw_config.h"
#include "interface/vc_ids.h"
#include "modes/mode_op_params.h"
#include "pcc/pcc_merge.h"
#include "plugin/names.h"
#include "tests/support/bytes.h"

namespace {

template <typename T>
Words NewRecord() {
  const auto record = std::make_unique<T>();
  return WordsOf(*record);
}

TEST(Contract, RecordsStartAsBothSidesExpect) {
  const std::tuple<const char*, Words, Words> cases[] = {
      {"envelope", NewRecord<velaricolor::VcPayload>(), {24, 0, 0, 0}},
      {"library's envelope", NewRecord<tarn::TarnPayload>(), {24, 0, 0, 0}},
      {"mode", NewRecord<velaricolor::ColorMode>(), {255, 255, 65535, 0}},
      {"library's mode", NewRecord<tarn::ColorMode>(), {255, 255, 65535, 0}},
      {"dimensions", NewRecord<velaricolor::PostBlendHwConfig>(), {0, 0, 0, 0}},
      {"merge input", NewRecord<tarn::PccMergeInput>(), {552, 0, 0, 0}},
      {"merge output", NewRecord<tarn::PccMergeOutput>(), {280, 0, 0, 0}},
  };
  for (const auto& [name, words, expected] : cases) EXPECT_EQ(words, expected) << name;
  EXPECT_EQ(velaricolor::ColorMode().label, "standard");

  // Of the others the first word: a version that is not always the size.
  const std::tuple<const char*, uint32_t, uint32_t> versions[] = {
      {"mode list", velaricolor::ColorModeList().version, 96},
      {"request", velaricolor::ModeRenderInputParams().version, 2912},
      {"output", velaricolor::HwConfigOutputParams().version, 32},
      {"entry", velaricolor::HwConfigPayload().version, 56},
      {"gamut", std::make_unique<velaricolor::GamutPostBlendConfig>()->version, 117936},
      {"gamma", velaricolor::GammaPostBlendConfig().version, 88},
      {"PCC", velaricolor::PccPostBlendConfig().version, 280},
      {"PA", std::make_unique<velaricolor::PaPostBlendConfig>()->version, 9568},
      {"DE", velaricolor::DePostBlendConfig().version, 48},
      {"dither", velaricolor::DitherPostBlendConfig().version, 96},
      {"PA dither", velaricolor::PaDitherPostBlendConfig().version, 88},
      {"HDR blob", velaricolor::HdrBlobPostBlendConfig().version, 32},
      {"game blob", velaricolor::GameBlobPostBlendConfig().version, 32},
      {"transform", velaricolor::ColorTransformMatrix().version, 68},
  };
  for (const auto& [name, version, expected] : versions) EXPECT_EQ(version, expected) << name;

  const velaricolor::ColorTransformMatrix transform;
  for (size_t i = 0; i < 16; ++i) EXPECT_EQ(transform.matrix[i], i % 5 == 0 ? 1 : 0) << i;
}

TEST(Contract, IdsAreThoseOfTheOtherSide) {
  const std::pair<int, int> ids[] = {
      {velaricolor::kVcModesList, 1},
      {velaricolor::kVcNeedsUpdate, 2},
      {velaricolor::kVcColorTransform, 5},
      {velaricolor::kVcPostBlendGamutHwConfig, 6},
      {velaricolor::kVcPostBlendGammaHwConfig, 7},
      {velaricolor::kVcPostBlendInverseGammaHwConfig, 8},
      {velaricolor::kVcSupportToneMap, 9},
      {velaricolor::kVcDisplayCalibrationMode, 12},
      {velaricolor::kVcLtmPccConfig, 13},
      {velaricolor::kVcPbDitherHwConfig, 14},
      {velaricolor::kVcSupportHwAssets, 2048},
      {velaricolor::kVcDimmingSupport, 2054},
      {velaricolor::kVcDimmingPcc, 2055},
      {velaricolor::kVcModeRenderIntent, 0},
      {velaricolor::kVcModeSwAssets, 1},
      {static_cast<int>(tarn::kZelModesList), 1},
      {static_cast<int>(tarn::kZelPostBlendGamutHwConfig), 6},
      {static_cast<int>(tarn::kZelPostBlendGammaHwConfig), 7},
      {static_cast<int>(tarn::kZelPostBlendInverseGammaHwConfig), 8},
      {static_cast<int>(tarn::kZelPbDitherHwConfig), 12},
      {tarn::kZelModeRenderIntent, 0},
      {tarn::kZelModeSwAssets, 1},
      {tarn::kZelPccMerge, 2},
  };
  for (const auto& [id, expected] : ids) EXPECT_EQ(id, expected);
  EXPECT_EQ(sizeof(velaricolor::VcProperty) + sizeof(velaricolor::VcOps), 8U);
  EXPECT_EQ(sizeof(tarn::ZelProperty) + sizeof(tarn::ZelOps), 8U);
}

TEST(Contract, NamesAreThoseOfTheOtherSide) {
  const std::pair<std::string, const char*> names[] = {
      {velaricolor::kPostBlendGamut, "PostBlendGamut"},
      {velaricolor::kPostBlendIGC, "PostBlendIGC"},
      {velaricolor::kPostBlendGC, "PostBlendGC"},
      {velaricolor::kPostBlendCWBDither, "PostBlendCWBDither"},
      {velaricolor::kPostBlendHdrBlob, "PostBlendHdrBlob"},
      {velaricolor::kHwCapIgcDither, "HwCapIgcDither"},
      {velaricolor::kPostBlendPCC, "PostBlendPCC"},
      {velaricolor::kPostBlendPa, "PostBlendPa"},
      {velaricolor::kPostBlendDither, "PostBlendDither"},
      {velaricolor::kPostBlendPaDither, "PostBlendPaDither"},
      {velaricolor::kPostBlendDE, "PostBlendDE"},
      {velaricolor::kPostBlendGameBlob, "PostBlendGameBlob"},
      {velaricolor::kPostBlendMixerGc, "PostBlendMixerGc"},
      {velaricolor::kDynamicRange, "DynamicRange"},
      {velaricolor::kColorGamut, "ColorGamut"},
      {velaricolor::kPictureQuality, "PictureQuality"},
      {velaricolor::kGammaTransfer, "GammaTransfer"},
      {velaricolor::kRenderIntent, "RenderIntent"},
      {velaricolor::kHdr, "hdr"},
      {velaricolor::kSdr, "sdr"},
      {velaricolor::kNative, "native"},
      {velaricolor::kDcip3, "dcip3"},
      {velaricolor::kSrgb, "srgb"},
      {velaricolor::kDisplayP3, "display_p3"},
      {velaricolor::kBt2020, "bt2020"},
      {velaricolor::kHlg, "hlg"},
      {velaricolor::kSt2084, "st2084"},
      {velaricolor::kGamma2_2, "gamma2_2"},
      {velaricolor::kVivid, "vivid"},
      {velaricolor::kSharp, "sharp"},
      {velaricolor::kStandard, "standard"},
      {velaricolor::kAmazon, "amazon"},
      {velaricolor::kNetflix, "netflix"},
      {velaricolor::kEnhanced, "enhanced"},
  };
  for (const auto& [name, expected] : names) EXPECT_EQ(name, expected);
}

// The places of an attribute's parts, which no type names.
TEST(Contract, AttributesLieWhereTheOtherSideReadsThem) {
  const zeltarn::layout::HwAttribute attribute = {"name", true, {-1, 5}};
  const auto offset = [&](const auto& part) {
    return reinterpret_cast<const char*>(&part) - reinterpret_cast<const char*>(&attribute);
  };
  EXPECT_EQ(sizeof attribute, 48U);
  EXPECT_EQ(offset(std::get<0>(attribute)), 0);
  EXPECT_EQ(offset(std::get<1>(attribute)), 24);
  EXPECT_EQ(offset(std::get<2>(attribute).first), 32);
  EXPECT_EQ(offset(std::get<2>(attribute).second), 40);
}

}  // namespace
