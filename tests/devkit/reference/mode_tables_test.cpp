// SPDX-License-Identifier: Apache-2.0

// What the mode parser computes: curves, the matrix, the gamut table.
#include <unistd.h>

#include <bit>
#include <filesystem>
#include <fstream>
#include <map>
#include <tuple>

#include "convert/gamut_gamma_config.h"
#include "devkit/reference/gamut_lut.h"
#include "devkit/reference/pcc_polynomial.h"
#include "tests/devkit/reference/parser_host.h"

namespace {

using tarn::reference::GammaAxis;
using tarn::reference::LookUp;
using tarn::reference::MaxCode;
using Numbers = std::array<double, 3>;

class ModeTables : public ModeParser {};

// The expected numbers are the standards' formulas in exact arithmetic.
TEST_F(ModeTables, ComputesColoursAndCurves) {
  const Numbers color = {1, 0.5, 0.25};
  struct Case {
    const char* panel;
    const char* mode;
    Numbers on_panel;  // what the PCC block makes of `color`
    Numbers light;     // of the signals 1/4, 1/2 and 3/4
  };
  const Case cases[] = {
      {"phone-oled", "srgb", {0.86475, 0.51608, 0.28126}, {0.05088, 0.21404, 0.52252}},
      {"phone-oled", "display_p3", {0.94250, 0.50001, 0.25033}, {0.05088, 0.21404, 0.52252}},
      {"phone-oled", "dcip3", {0.82957, 0.50009, 0.19985}, {0.02721, 0.16494, 0.47333}},
      {"phone-oled", "bt2020_hlg", {1.10858, 0.47184, 0.24738}, {0.01141, 0.05619, 0.21483}},
      {"phone-oled", "bt2020_st2084", {1.10858, 0.47184, 0.24738}, {0.00635, 0.11360, 1}},
      {"lcd-srgb", "video", {1.01765, 0.49660, 0.25789}, {0.05038, 0.21387, 0.52254}},
      {"odd", "native", color, {0.04311, 0.21978, 0.56420}},
      {"odd", "paper", {0.99067, 0.47894, 0.24341}, {0.05088, 0.21404, 0.52252}},
      {"odd", "proof", {0.81148, 0.41943, 0.30596}, {0.08247, 0.28717, 0.59581}},
  };
  for (const Case& c : cases) {
    Start(c.panel);
    EXPECT_EQ(SetDimensions(kIgc, {5, 24}), 0);
    ASSERT_EQ(Ask(tarn::kZelModeRenderIntent, c.mode), 0);
    const auto& pcc = Block<tarn::PccPostBlendConfig>("PostBlendPCC");
    EXPECT_TRUE(pcc.enable);
    const Numbers on_panel = tarn::reference::Evaluate(pcc.coeffs, color);
    const auto& igc = Block<tarn::GammaPostBlendConfig>("PostBlendIGC").c0;
    for (size_t i = 0; i < 3; ++i) {
      EXPECT_NEAR(on_panel[i], c.on_panel[i], 1e-5) << c.mode << " component " << i;
      EXPECT_NEAR(igc.at(i + 1) / MaxCode(24), c.light[i], 1e-5) << c.mode << " signal " << i;
    }
  }
}

TEST_F(ModeTables, MakesOfAMeasurementWhatItSays) {
  const auto description = [](const std::string& transfer) {
    return R"({"format": 1, "name": "measured", "panel": {"primaries": {"red": [0.64, 0.33],
      "green": [0.3, 0.6], "blue": [0.15, 0.06]}, "white": [0.3127, 0.329],
      "luminance": {"peak": 500}, "transfer": )" +
           transfer + R"(}, "modes": [{"label": "a", "gamut": 0, "gamma": 0, "intent": 0}]})";
  };
  const std::string path = testing::TempDir() + "measured_" + std::to_string(getpid()) + ".json";
  using Table = std::vector<uint32_t>;
  const struct {
    std::string transfer;
    std::array<Table, 3> igc;  // at the signals 0, 1/4, 1/2, 3/4 and 1, of 0 to 255
    std::string note;
  } cases[] = {
      {R"({"ramp": [[0, 5], [128, 15], [256, 25]], "full_scale": 256})",
       {Table{0, 64, 128, 191, 255}, {0, 64, 128, 191, 255}, {0, 64, 128, 191, 255}},
       ""},
      {R"({"ramp": {"red": [[0, 0], [1, 1]], "green": [[0, 0], [0.5, 0.2], [1, 1]],
          "blue": [[0, 1], [0.25, 1.6], [1, 2]]}})",
       {Table{0, 64, 128, 191, 255}, {0, 26, 51, 153, 255}, {0, 153, 187, 221, 255}},
       ""},
      // 3 and 1 become 2, of 100.
      {R"({"ramp": [[0, 0], [0.25, 3], [0.5, 1], [1, 100]], "fit": "isotonic"})",
       {Table{0, 5, 5, 130, 255}, {0, 5, 5, 130, 255}, {0, 5, 5, 130, 255}},
       "json: $.panel.transfer.ramp: fitted; at most 1 (1 % of the range) from the "
       "measurement, at signal 0.25"},
  };
  for (const auto& test : cases) {
    std::ofstream(path) << description(test.transfer);
    TakeLog();
    ASSERT_EQ(parser_->Init(path), 0);
    const Lines log = TakeLog();
    ASSERT_EQ(log.size(), test.note.empty() ? 0 : 1);
    if (!log.empty()) EXPECT_NE(log[0].find(test.note), std::string::npos) << log[0];
    EXPECT_EQ(SetDimensions(kIgc, {5, 8}), 0);
    EXPECT_EQ(Ask(tarn::kZelModeRenderIntent, "a"), 0);
    const auto& igc = Block<tarn::GammaPostBlendConfig>("PostBlendIGC");
    EXPECT_EQ(std::tie(igc.c0, igc.c1, igc.c2), std::tie(test.igc[0], test.igc[1], test.igc[2]))
        << test.transfer;
    const auto& gc = Block<tarn::GammaPostBlendConfig>("PostBlendGC");
    EXPECT_NEAR(LookUp(GammaAxis::kGc, gc.c1, 10, test.igc[1][3] / 255.0), 0.75, 0.004);
  }
  std::filesystem::remove(path);
}

TEST_F(ModeTables, NativeModeReturnsItsSignals) {
  // Bits that tell the darkest signals of each panel apart.
  for (const auto& [panel, bits] :
       {std::pair{"phone-oled", 17U}, {"lcd-srgb", 13U}, {"odd", 16U}}) {
    Start(panel);
    EXPECT_EQ(SetDimensions(kIgc, {257, bits}), 0);
    ASSERT_EQ(Ask(tarn::kZelModeRenderIntent, "native"), 0);
    const auto& igc = Block<tarn::GammaPostBlendConfig>("PostBlendIGC").c0;
    const auto& gc = Block<tarn::GammaPostBlendConfig>("PostBlendGC").c0;
    for (double signal = 0; signal <= 1; signal += 1.0 / 256) {
      const double light = LookUp(GammaAxis::kIgc, igc, bits, signal);
      EXPECT_NEAR(LookUp(GammaAxis::kGc, gc, 10, light), signal, 1 / MaxCode(10)) << panel;
    }
  }
}

// What colours become of it, pictures are judged for; here, what hosts rely on.
TEST_F(ModeTables, GamutTableHasItsLayoutAndNeutralsStayNeutral) {
  const std::map<std::string, bool> table_used = {
      {"lcd-srgb/display_p3", true},   {"odd/proof", true},
      {"phone-oled/display_p3", true}, {"phone-oled/bt2020_hlg", true},
      {"phone-oled/dcip3", false},     {"phone-oled/bt2020_st2084", true}};
  size_t found = 0;
  for (const std::string panel : {"lcd-srgb", "odd", "phone-oled"}) {
    Start(panel);
    for (const tarn::ColorMode& mode : Modes()) {
      const std::string place = panel + "/" + mode.label;
      ASSERT_EQ(Ask(tarn::kZelModeRenderIntent, mode.label), 0);
      const auto& block = Block<tarn::GamutPostBlendConfig>("PostBlendGamut");
      if (const auto used = table_used.find(place); used != table_used.end()) {
        EXPECT_EQ(block.enable, used->second) << place;
        ++found;
      }
      const auto lut = std::bit_cast<tarn::reference::GamutLut>(block.lut_data);
      EXPECT_EQ(std::tie(lut.side, lut.bit_depth, lut.axis), std::tuple(17U, 12U, 2U)) << place;
      for (uint64_t i = 0; i < 17; ++i) {
        const auto& node = lut.nodes[i * (17 * 17 + 17 + 1)];
        EXPECT_TRUE(node[0] == node[1] && node[1] == node[2]) << place << " node " << i;
        EXPECT_NEAR(static_cast<double>(node[0]), 4095.0 * static_cast<double>(i * i) / 256, 0.6);
      }
    }
  }
  EXPECT_EQ(found, table_used.size());
  // Of (12/16)^2, (10/16)^2 and (8/16)^2, which every panel shows, in that order.
  Start("lcd-srgb");
  ASSERT_EQ(Ask(tarn::kZelModeRenderIntent, "display_p3"), 0);
  const auto& block = Block<tarn::GamutPostBlendConfig>("PostBlendGamut");
  const auto lut = std::bit_cast<tarn::reference::GamutLut>(block.lut_data);
  EXPECT_EQ(lut.nodes[(12 * 17 + 10) * 17 + 8], (std::array<uint64_t, 3>{2303, 1600, 1024}));
}

}  // namespace
