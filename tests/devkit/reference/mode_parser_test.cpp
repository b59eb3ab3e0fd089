// SPDX-License-Identifier: Apache-2.0

// The mode parser on the panels that ship: what it answers, computes and refuses.
#include <android/log.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <bit>
#include <cstdarg>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <map>
#include <tuple>
#include <utility>

#include "bridge/tarn_intf.h"
#include "convert/blob_config.h"
#include "convert/dither_config.h"
#include "convert/gamut_gamma_config.h"
#include "convert/pa_de_config.h"
#include "devkit/reference/gamma_lut.h"
#include "devkit/reference/gamut_lut.h"
#include "devkit/reference/pcc_polynomial.h"
#include "handlers/post_blend_hw_config.h"
#include "modes/mode_op_params.h"

namespace {

using tarn::reference::GammaAxis;
using tarn::reference::LookUp;
using tarn::reference::MaxCode;
using Numbers = std::array<double, 3>;
using Lines = std::vector<std::string>;

constexpr auto kIgc = tarn::kZelPostBlendInverseGammaHwConfig;
constexpr auto kGc = tarn::kZelPostBlendGammaHwConfig;
constexpr auto kGamut = tarn::kZelPostBlendGamutHwConfig;

Lines logged;
Lines TakeLog() { return std::exchange(logged, {}); }

class ModeParser : public testing::Test {
 protected:
  ModeParser() { Start("phone-oled"); }

  void Start(const std::string& panel) { EXPECT_EQ(parser_->Init(PANELS + panel + ".json"), 0); }

  std::vector<tarn::ColorMode> Modes() {
    tarn::ColorModeList list;
    tarn::TarnPayload payload = tarn::Wrap(&list, tarn::kZelModesList);
    EXPECT_EQ(parser_->GetProperty(&payload), 0);
    return list.modes;
  }

  // Result of an operation for the mode of this label, whose answer is kept.
  int Ask(tarn::ZelOps op, const std::string& label) {
    tarn::ModeRenderInputParams request = {};
    for (const tarn::ColorMode& mode : Modes()) {
      if (mode.label == label) request.mode = mode;
    }
    tarn::TarnPayload out = tarn::Wrap(&answer_);
    return parser_->ProcessOps(op, tarn::Wrap(&request), &out);
  }

  int SetDimensions(tarn::ZelProperty prop, const zeltarn::TableDimensions& size) {
    const uint32_t version = prop == kGamut ? 117936 : 88;
    tarn::PostBlendHwConfig config = {version, size.num_of_entries, size.bit_depth, 0, {}};
    return parser_->SetProperty(tarn::Wrap(&config, prop));
  }

  // The typed record of the answer's block `name`. Without it the test has failed.
  template <typename T>
  const T& Block(const std::string& name) const {
    const auto block = std::find_if(answer_.payloads.begin(), answer_.payloads.end(),
                                    [&](const auto& b) { return b.hw_block == name; });
    if (block == answer_.payloads.end()) throw std::runtime_error("no block " + name);
    const T& record = *static_cast<const T*>(block->payload.get());
    EXPECT_EQ(block->len, sizeof(T)) << name;
    EXPECT_EQ(record.version, sizeof(T)) << name;
    return record;
  }

  std::unique_ptr<tarn::ModeParserIntf> parser_{GetTarnZelInterface(2, 0)};
  tarn::HwConfigOutputParams answer_;
};

TEST_F(ModeParser, HoldsTheLastGoodPanelUntilDeInit) {
  EXPECT_EQ(GetTarnZelInterface(2, 1), nullptr);
  EXPECT_EQ(parser_->Init("/none.json"), -22);
  EXPECT_EQ(TakeLog(), Lines{"6 TARN-PARSER /none.json: No such file or directory"});
  EXPECT_EQ(Modes().at(3).label, "dcip3") << "a refused description loses nothing";
  Start("lcd-srgb");
  EXPECT_EQ(Modes().at(3).hw_assets, (Lines{"PostBlendIGC", "PostBlendGC", "PostBlendGamut"}));
  EXPECT_EQ(parser_->DeInit(), 0);
  tarn::TarnPayload out = tarn::Wrap(&answer_, tarn::kZelPbDitherHwConfig);
  EXPECT_EQ(parser_->GetProperty(&out), -22);
  EXPECT_EQ(parser_->ProcessOps(tarn::kZelModeRenderIntent, out, &out), -22);
  EXPECT_EQ(TakeLog(), Lines(2, "6 TARN-PARSER not initialised"));
}

TEST_F(ModeParser, HandsOutStatedBlocks) {
  EXPECT_EQ(Ask(tarn::kZelModeRenderIntent, "vivid"), 0);
  EXPECT_EQ(answer_.payloads.size(), 10U);
  const auto& pa = Block<tarn::PaPostBlendConfig>("PostBlendPa");
  EXPECT_TRUE(pa.enable);
  EXPECT_EQ(pa.i_params[3], 6);
  EXPECT_EQ(pa.sub_params[1].ints_b[6], 12);
  EXPECT_EQ(pa.sub_params[2].triple0[2], 240U);
  EXPECT_EQ(pa.sub_params[2].triple2[0], 255U);
  EXPECT_EQ(pa.tail_params[15], 0xff);
  EXPECT_EQ(pa.tail_table[15], 0x0f);
  const auto& words = Block<tarn::PaDitherPostBlendConfig>("PostBlendPaDither").words;
  EXPECT_EQ(words[0], 6U) << "strength";
  EXPECT_EQ(words[19], 5U) << "the matrix's last threshold";
  EXPECT_EQ(Block<tarn::HdrBlobPostBlendConfig>("PostBlendHdrBlob").blob.substr(0, 4), "HDR\1");
  EXPECT_EQ(Block<tarn::GameBlobPostBlendConfig>("PostBlendGameBlob").blob.substr(5), "vivid");
  EXPECT_EQ(Block<tarn::DePostBlendConfig>("PostBlendDE").params[15], 0xa0);

  EXPECT_EQ(Ask(tarn::kZelModeSwAssets, "vivid"), 0);
  EXPECT_EQ(Block<tarn::GameBlobPostBlendConfig>("PostBlendGameBlob").blob, "tone:vivid");
  tarn::TarnPayload payload = tarn::Wrap(&answer_, tarn::kZelPbDitherHwConfig);
  EXPECT_EQ(parser_->GetProperty(&payload), 0);
  const auto& dither = Block<tarn::DitherPostBlendConfig>("PostBlendDither");
  EXPECT_EQ(dither.params[0], 1) << "temporal";
  EXPECT_EQ(dither.params[4], 8) << "bits";
}

// The expected numbers are the standards' formulas in exact arithmetic.
TEST_F(ModeParser, ComputesColoursAndCurves) {
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

TEST_F(ModeParser, MakesOfAMeasurementWhatItSays) {
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

TEST_F(ModeParser, NativeModeReturnsItsSignals) {
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
TEST_F(ModeParser, GamutTableHasItsLayoutAndNeutralsStayNeutral) {
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

// Computed once for a mode and its dimensions; another panel's are another's.
TEST_F(ModeParser, AnswersShareTheirRecordsUntilDimensionsOrPanelChange) {
  const auto record_of = [this](const std::string& label) {
    EXPECT_EQ(Ask(tarn::kZelModeRenderIntent, label), 0);
    return answer_.payloads.at(0).payload;  // kept, so that no other has its address
  };
  const auto first = record_of("srgb");
  EXPECT_NE(record_of("display_p3"), first);
  EXPECT_EQ(record_of("srgb"), first);
  ASSERT_EQ(SetDimensions(kGc, {1024, 12}), 0);
  const auto other = record_of("srgb");
  EXPECT_NE(other, first);
  EXPECT_NE(SetDimensions(kGc, {0, 12}), 0);
  EXPECT_EQ(record_of("srgb"), other) << "refused dimensions change nothing";
  TakeLog();
  Start("lcd-srgb");
  EXPECT_NE(record_of("srgb"), other);
}

TEST_F(ModeParser, TablesHaveTheLastGoodDimensions) {
  struct Case {
    tarn::ZelProperty prop;
    zeltarn::TableDimensions size;
    std::string refusal;
  };
  std::map<uint32_t, zeltarn::TableDimensions> expected = {{kIgc, {257, 12}}, {kGc, {1024, 10}}};
  for (const Case& c : {Case{kIgc, {0, 12}, "inverse gamma table: 0 entries, expected 1 to 1024"},
                        {kGc, {1025, 10}, "gamma table: 1025 entries, expected 1 to 1024"},
                        {kIgc, {33, 0}, "inverse gamma table: 0 bits, expected 1 to 32"},
                        {kGamut, {16, 12}, "gamut table: 16 entries, expected 17"},
                        {tarn::kZelModesList, {17, 12}, "no property 1 to set"},
                        {kIgc, {1024, 32}, ""},
                        {kIgc, {1, 12}, ""},
                        {kGc, {2, 1}, ""}}) {
    const bool good = c.refusal.empty();
    EXPECT_EQ(SetDimensions(c.prop, c.size), good ? 0 : -22);
    EXPECT_EQ(TakeLog(), good ? Lines{} : Lines{"6 TARN-PARSER " + c.refusal});
    if (good) expected[c.prop] = c.size;
    EXPECT_EQ(Ask(tarn::kZelModeRenderIntent, "bt2020_st2084"), 0);
    for (const auto& [prop, name] : {std::pair{kIgc, "PostBlendIGC"}, {kGc, "PostBlendGC"}}) {
      const auto& table = Block<tarn::GammaPostBlendConfig>(name);
      EXPECT_TRUE(table.enable);
      EXPECT_EQ(table.c0.size(), expected[prop].num_of_entries) << name;
      EXPECT_EQ(table.c0.back(), MaxCode(expected[prop].bit_depth)) << name;
      EXPECT_TRUE(table.c1 == table.c0 && table.c2 == table.c0) << name;
    }
  }
}

TEST_F(ModeParser, RefusesEnvelopesAndRequestsThatAreNotExact) {
  tarn::ModeRenderInputParams request = {};  // the native mode's ids
  tarn::TarnPayload in = tarn::Wrap(&request);
  tarn::TarnPayload out = tarn::Wrap(&answer_);
  const auto run = [&](tarn::ZelOps op) { return parser_->ProcessOps(op, in, &out); };
  for (const auto& [field, wrong, line] :
       {std::tuple{&in.version, 25U, "envelope version 25, expected 24"},
        {&in.len, 2911U, "record length 2911, expected 2912"},
        {&request.version, 2908U, "record version 2908, expected 2912"},
        {&out.prop, 1U, "operation with a property"},
        {&out.len, 33U, "record length 33, expected 32"},
        {&request.mode.intent, 9U, "no mode with gamut 0, gamma 0, intent 9"}}) {
    const uint32_t right = std::exchange(*field, wrong);
    EXPECT_EQ(run(tarn::kZelModeRenderIntent), -22) << line;
    EXPECT_EQ(TakeLog(), Lines{std::string("6 TARN-PARSER ") + line});
    *field = right;
  }
  EXPECT_EQ(run(tarn::kZelPccMerge), -95);
  EXPECT_TRUE(answer_.payloads.empty());
  EXPECT_EQ(run(tarn::kZelModeRenderIntent), 0);
  tarn::PostBlendHwConfig config;  // version 0
  EXPECT_EQ(parser_->SetProperty(tarn::Wrap(&config, kGc)), -22);
  EXPECT_EQ(TakeLog().size(), 2U) << "one line for each refusal";
}

}  // namespace

// Found before the log library's own, since the program comes first.
int __android_log_print(int prio, const char* tag, const char* fmt, ...) {
  char text[4096];
  va_list args;
  va_start(args, fmt);
  std::vsnprintf(text, sizeof(text), fmt, args);
  va_end(args);
  logged.push_back(std::to_string(prio) + " " + tag + " " + text);
  return 1;
}
