// What the parser computes for the panels that ship.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <map>
#include <memory>

#include "convert/gamut_gamma_config.h"
#include "devkit/reference/color/primaries.h"
#include "devkit/reference/gamma_lut.h"
#include "devkit/reference/gamut_lut.h"
#include "handlers/post_blend_hw_config.h"
#include "pcc/pcc_config.h"
#include "tests/devkit/reference/opened_library.h"

namespace {

using tarn::color::Mat3;
using tarn::color::Multiply;
using tarn::color::Vec3;
using tarn::reference::AxisInput;
using tarn::reference::GammaAxis;
using tarn::reference::GamutLut;
using tarn::reference::kGamutNodes;
using tarn::reference::LookUp;
using tarn::reference::MaxCode;
using tarn::reference::NodeIndex;

Mat3 MatrixOf(const tarn::HwConfigOutputParams& answer) {
  const auto& pcc = BlockOf<tarn::PccPostBlendConfig>(answer, "PostBlendPCC")->coeffs;
  const auto linear = [](const PccRow& row) {
    for (size_t term = 0; term < kPccTerms; ++term) {
      if (term < 1 || term > 3) EXPECT_EQ(row[term], 0) << "term " << term;
    }
    return Vec3{row[1], row[2], row[3]};
  };
  return {linear(pcc.r), linear(pcc.g), linear(pcc.b)};
}

std::unique_ptr<GamutLut> LutOf(const tarn::HwConfigOutputParams& answer) {
  const auto* block = BlockOf<tarn::GamutPostBlendConfig>(answer, "PostBlendGamut");
  auto lut = std::make_unique<GamutLut>();
  std::memcpy(lut.get(), block->lut_data.data(), sizeof(GamutLut));
  return lut;
}

class SamplePanels : public testing::TestWithParam<const char*> {
 protected:
  SamplePanels() { EXPECT_EQ(parser_->Init(std::string(PANELS) + GetParam()), 0); }

  tarn::HwConfigOutputParams Render(const tarn::ColorMode& mode) {
    tarn::HwConfigOutputParams answer;
    EXPECT_EQ(Ask(parser_.get(), tarn::kZelModeRenderIntent, mode, &answer), 0) << mode.label;
    return answer;
  }

  void SetGamma(tarn::ZelProperty prop, uint32_t entries, uint32_t bits) {
    tarn::PostBlendHwConfig config;
    config.version = 88;
    config.num_of_entries = entries;
    config.bit_depth = bits;
    EXPECT_EQ(parser_->SetProperty(tarn::Wrap(&config, prop)), 0);
  }

  std::unique_ptr<tarn::ModeParserIntf> parser_ = ModeParserLibrary().New();
};

INSTANTIATE_TEST_SUITE_P(All, SamplePanels,
                         testing::Values("phone-oled.json", "lcd-srgb.json", "odd.json"),
                         [](const auto& instance) {
                           return std::string(instance.param).substr(0, 3);
                         });

TEST_P(SamplePanels, NativeModeHasTheIdentityMatrix) {
  EXPECT_EQ(MatrixOf(Render(ModesOf(parser_.get()).front())), tarn::color::kIdentity);
}

TEST_P(SamplePanels, NativeModeReturnsItsSignals) {
  struct Case {
    uint32_t igc_bits, gc_entries, gc_bits;
  };
  // Bits of light that tell the panel's darkest signals apart.
  const std::map<std::string, uint32_t> enough = {
      {"phone-oled.json", 17}, {"lcd-srgb.json", 13}, {"odd.json", 16}};
  const uint32_t fine = enough.at(GetParam());
  for (const Case& c : {Case{12, 1024, 10}, {fine, 1024, 10}, {24, 1024, 10}, {24, 1024, 8}}) {
    SetGamma(tarn::kZelPostBlendInverseGammaHwConfig, 257, c.igc_bits);
    SetGamma(tarn::kZelPostBlendGammaHwConfig, c.gc_entries, c.gc_bits);
    const tarn::HwConfigOutputParams answer = Render(ModesOf(parser_.get()).front());
    const auto& igc = BlockOf<tarn::GammaPostBlendConfig>(answer, "PostBlendIGC")->c0;
    const auto& gc = BlockOf<tarn::GammaPostBlendConfig>(answer, "PostBlendGC")->c0;
    const double igc_code = 1 / MaxCode(c.igc_bits);
    const double gc_code = 1 / MaxCode(c.gc_bits);
    const auto signal_of = [&](double light) {
      return LookUp(GammaAxis::kGc, gc, c.gc_bits, light);
    };
    for (size_t i = 0; i < igc.size(); ++i) {
      const double signal = AxisInput(GammaAxis::kIgc, i, igc.size());
      const double light = LookUp(GammaAxis::kIgc, igc, c.igc_bits, signal);
      // One code value: of GC, or near black, where light is coarser, of IGC.
      EXPECT_GE(signal, signal_of(light - igc_code) - gc_code) << c.igc_bits << " bits, " << i;
      EXPECT_LE(signal, signal_of(light + igc_code) + gc_code) << c.igc_bits << " bits, " << i;
      if (c.igc_bits >= fine) EXPECT_NEAR(signal_of(light), signal, gc_code) << i;
    }
  }
}

TEST_P(SamplePanels, TablesRiseInEveryMode) {
  for (const tarn::ColorMode& mode : ModesOf(parser_.get())) {
    const tarn::HwConfigOutputParams answer = Render(mode);
    for (const char* name : {"PostBlendIGC", "PostBlendGC"}) {
      const auto* table = BlockOf<tarn::GammaPostBlendConfig>(answer, name);
      EXPECT_TRUE(table->enable);
      EXPECT_TRUE(std::is_sorted(table->c0.begin(), table->c0.end())) << mode.label << name;
      EXPECT_EQ(table->c0, table->c1);
      EXPECT_EQ(table->c0, table->c2);
    }
  }
}

TEST_P(SamplePanels, GamutTableLeavesShowableColoursAndMapsTheOthersIntoThePanel) {
  for (const tarn::ColorMode& mode : ModesOf(parser_.get())) {
    const tarn::HwConfigOutputParams answer = Render(mode);
    const Mat3 to_panel = MatrixOf(answer);
    const bool mapping = BlockOf<tarn::GamutPostBlendConfig>(answer, "PostBlendGamut")->enable;
    const auto lut = LutOf(answer);
    ASSERT_EQ(lut->side, 17U);
    ASSERT_EQ(lut->bit_depth, 12U);
    for (size_t index = 0; index < kGamutNodes; ++index) {
      const std::array<size_t, 3> steps = {index / 289, index / 17 % 17, index % 17};
      Vec3 node;
      for (size_t i = 0; i < 3; ++i) node[i] = static_cast<double>(steps[i]) / 16;
      Vec3 mapped;
      for (size_t i = 0; i < 3; ++i) {
        mapped[i] = static_cast<double>(lut->nodes[index][i]) / MaxCode(12);
      }
      const Vec3 before = Multiply(to_panel, node);
      const Vec3 after = Multiply(to_panel, mapped);
      const bool fits =
          std::all_of(before.begin(), before.end(), [](double c) { return c >= 0 && c <= 1; });
      for (size_t i = 0; i < 3; ++i) {
        if (fits || !mapping) {
          EXPECT_NEAR(mapped[i], node[i], 0.5 / MaxCode(12) + 1e-12) << mode.label << index;
        } else {
          // A code value, and what clipping to the mode's own cube costs.
          EXPECT_GT(after[i], -0.02) << mode.label << " " << index;
          EXPECT_LT(after[i], 1.02) << mode.label << " " << index;
        }
      }
    }
  }
}

class PhonePanel : public testing::Test {
 protected:
  PhonePanel() { EXPECT_EQ(parser_->Init(PANELS "phone-oled.json"), 0); }

  tarn::HwConfigOutputParams Render(size_t mode) {
    tarn::HwConfigOutputParams answer;
    const std::vector<tarn::ColorMode> modes = ModesOf(parser_.get());
    EXPECT_EQ(Ask(parser_.get(), tarn::kZelModeRenderIntent, modes.at(mode), &answer), 0);
    return answer;
  }

  const tarn::color::Primaries panel_ = {
      {0.6835, 0.3160}, {0.2410, 0.7140}, {0.1395, 0.0485}, {0.3098, 0.3235}};
  std::unique_ptr<tarn::ModeParserIntf> parser_ = ModeParserLibrary().New();
};

// Corners of the mode's cube land on the chromaticities that the standard names.
TEST_F(PhonePanel, MatricesReproduceTheTargets) {
  struct Case {
    size_t mode;
    tarn::color::Primaries target;
    bool adaptation;
  };
  for (const Case& c : {Case{1, tarn::color::kSrgb, true},
                        {2, tarn::color::kDisplayP3, true},
                        {3, tarn::color::kDciP3, false},
                        {4, tarn::color::kBt2020, true}}) {
    const Mat3 to_xyz = Multiply(RgbToXyz(panel_), MatrixOf(Render(c.mode)));
    const auto expect_chromaticity = [](Vec3 xyz, const tarn::color::Chromaticity& expected) {
      EXPECT_NEAR(xyz[0] / (xyz[0] + xyz[1] + xyz[2]), expected.x, 1e-9);
      EXPECT_NEAR(xyz[1] / (xyz[0] + xyz[1] + xyz[2]), expected.y, 1e-9);
    };
    expect_chromaticity(Multiply(to_xyz, Vec3{1, 1, 1}),
                        c.adaptation ? panel_.white : c.target.white);
    if (c.adaptation) continue;
    expect_chromaticity(Multiply(to_xyz, Vec3{1, 0, 0}), c.target.red);
    expect_chromaticity(Multiply(to_xyz, Vec3{0, 1, 0}), c.target.green);
    expect_chromaticity(Multiply(to_xyz, Vec3{0, 0, 1}), c.target.blue);
  }
}

TEST_F(PhonePanel, DesaturatedColoursKeepTheirLuminance) {
  const tarn::HwConfigOutputParams answer = Render(4);
  const auto lut = LutOf(answer);
  // Luminance of the mode's components on the panel.
  const Mat3 to_panel = MatrixOf(answer);
  const Vec3 panel = tarn::color::LuminanceWeights(panel_);
  Vec3 weights = {};
  for (size_t i = 0; i < 3; ++i) {
    for (size_t j = 0; j < 3; ++j) weights[j] += panel[i] * to_panel[i][j];
  }
  const Vec3 colors[] = {{0.5, 0, 0}, {0, 0.5, 0}, {0, 0, 0.5}, {0, 0.5, 0.5}};
  for (const Vec3& color : colors) {
    const auto& node =
        lut->nodes[NodeIndex(color[0] > 0 ? 8 : 0, color[1] > 0 ? 8 : 0, color[2] > 0 ? 8 : 0)];
    double before = 0;
    double after = 0;
    for (size_t i = 0; i < 3; ++i) {
      before += weights[i] * color[i];
      after += weights[i] * static_cast<double>(node[i]) / MaxCode(12);
    }
    EXPECT_NEAR(after, before, 0.5 / MaxCode(12));
  }
}

TEST_F(PhonePanel, St2084IsAbsolute) {
  const tarn::HwConfigOutputParams answer = Render(5);
  const auto& igc = BlockOf<tarn::GammaPostBlendConfig>(answer, "PostBlendIGC")->c0;
  // Half the signal is 92.2 cd/m2; the panel reaches 812 at 72.96 % and clips there.
  EXPECT_NEAR(igc[128], 92.2 / 812 * 4095, 1);
  EXPECT_LT(igc[186], 4095U);
  EXPECT_EQ(igc[188], 4095U);
}

}  // namespace
