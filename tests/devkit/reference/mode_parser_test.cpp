// The mode parser's object on the sample phone panel: envelopes, dimensions,
// answers and life cycle.
#include <gtest/gtest.h>

#include <set>
#include <utility>

#include "convert/blob_config.h"
#include "convert/dither_config.h"
#include "convert/gamut_gamma_config.h"
#include "convert/pa_de_config.h"
#include "handlers/post_blend_hw_config.h"
#include "pcc/pcc_config.h"
#include "tests/devkit/reference/captured_log.h"
#include "tests/devkit/reference/opened_library.h"

namespace {

const std::string kPhone = PANELS "phone-oled.json";

class ModeParser : public testing::Test {
 protected:
  ModeParser() {
    EXPECT_EQ(parser_->Init(kPhone), 0);
    TakeLog();
  }

  int Dimension(tarn::ZelProperty prop, uint32_t entries, uint32_t bits) {
    tarn::PostBlendHwConfig config;
    config.version = prop == tarn::kZelPostBlendGamutHwConfig ? 117936 : 88;
    config.num_of_entries = entries;
    config.bit_depth = bits;
    return parser_->SetProperty(tarn::Wrap(&config, prop));
  }

  tarn::HwConfigOutputParams Render(const std::string& label) {
    tarn::HwConfigOutputParams answer;
    for (const tarn::ColorMode& mode : ModesOf(parser_.get())) {
      if (mode.label == label) {
        EXPECT_EQ(Ask(parser_.get(), tarn::kZelModeRenderIntent, mode, &answer), 0);
      }
    }
    return answer;
  }

  std::unique_ptr<tarn::ModeParserIntf> parser_ = ModeParserLibrary().New();
};

TEST_F(ModeParser, FactoryAcceptsItsVersionOnly) {
  EXPECT_EQ(ModeParserLibrary().New(2, 1), nullptr);
  EXPECT_EQ(ModeParserLibrary().New(3, 0), nullptr);
}

TEST_F(ModeParser, ListsTheModesOfTheFile) {
  std::vector<std::string> labels;
  for (const tarn::ColorMode& mode : ModesOf(parser_.get())) labels.push_back(mode.label);
  EXPECT_EQ(labels, (std::vector<std::string>{"native", "srgb", "display_p3", "dcip3", "bt2020_hlg",
                                              "bt2020_st2084", "vivid"}));
  EXPECT_EQ(ModesOf(parser_.get())[4].hw_assets.size(), 3U);
}

TEST_F(ModeParser, AnswersAllTenBlocks) {
  const tarn::HwConfigOutputParams answer = Render("vivid");
  std::set<std::string> names;
  for (const tarn::HwConfigPayload& block : answer.payloads) names.insert(block.hw_block);
  EXPECT_EQ(names.size(), 10U);
  EXPECT_EQ(answer.payloads.size(), 10U);

  BlockOf<tarn::GamutPostBlendConfig>(answer, "PostBlendGamut");
  EXPECT_TRUE(BlockOf<tarn::PccPostBlendConfig>(answer, "PostBlendPCC")->enable);
  const auto* pa = BlockOf<tarn::PaPostBlendConfig>(answer, "PostBlendPa");
  EXPECT_TRUE(pa->enable);
  EXPECT_EQ(pa->i_params[3], 6);
  EXPECT_EQ(pa->f_params[1], 1.08F);
  EXPECT_EQ(pa->sub_params[1].ints_b[6], 12);
  EXPECT_EQ(pa->sub_params[2].triple0[2], 240U);
  EXPECT_EQ(pa->tail_params[15], 0xff);
  EXPECT_EQ(pa->tail_params[16], 0);
  EXPECT_EQ(pa->tail_table[15], 0x0f);
  const auto* dither = BlockOf<tarn::DitherPostBlendConfig>(answer, "PostBlendDither");
  EXPECT_TRUE(dither->enable);
  EXPECT_EQ(dither->params[0], 1) << "temporal";
  EXPECT_EQ(dither->params[4], 8) << "bits";
  const auto* pa_dither = BlockOf<tarn::PaDitherPostBlendConfig>(answer, "PostBlendPaDither");
  EXPECT_EQ(pa_dither->words[0], 6U) << "strength";
  EXPECT_EQ(pa_dither->words[19], 5U) << "the matrix's last threshold";
  EXPECT_EQ(BlockOf<tarn::HdrBlobPostBlendConfig>(answer, "PostBlendHdrBlob")->blob.size(), 10U);
  const auto* game = BlockOf<tarn::GameBlobPostBlendConfig>(answer, "PostBlendGameBlob");
  EXPECT_TRUE(game->enable);
  EXPECT_EQ(game->blob, std::string("GAME\0vivid", 10));
  const auto* de = BlockOf<tarn::DePostBlendConfig>(answer, "PostBlendDE");
  EXPECT_EQ(de->params[15], 0xa0);
  EXPECT_EQ(de->params[16], 0);
}

TEST_F(ModeParser, SoftwareAssetsAndGlobalDither) {
  tarn::HwConfigOutputParams answer;
  const std::vector<tarn::ColorMode> modes = ModesOf(parser_.get());
  EXPECT_EQ(Ask(parser_.get(), tarn::kZelModeSwAssets, modes[6], &answer), 0);
  ASSERT_EQ(answer.payloads.size(), 1U);
  EXPECT_EQ(BlockOf<tarn::GameBlobPostBlendConfig>(answer, "PostBlendGameBlob")->blob,
            "tone:vivid");
  EXPECT_EQ(Ask(parser_.get(), tarn::kZelModeSwAssets, modes[0], &answer), 0);
  EXPECT_TRUE(answer.payloads.empty());

  tarn::TarnPayload payload = tarn::Wrap(&answer, tarn::kZelPbDitherHwConfig);
  EXPECT_EQ(parser_->GetProperty(&payload), 0);
  ASSERT_EQ(answer.payloads.size(), 1U);
  EXPECT_TRUE(BlockOf<tarn::DitherPostBlendConfig>(answer, "PostBlendDither")->enable);
}

TEST_F(ModeParser, TablesHaveTheHostsDimensions) {
  struct Case {
    uint32_t igc_entries, igc_bits, gc_entries, gc_bits;
  };
  const auto check = [&](const Case& c) {
    const tarn::HwConfigOutputParams answer = Render("bt2020_st2084");
    const auto* igc = BlockOf<tarn::GammaPostBlendConfig>(answer, "PostBlendIGC");
    const auto* gc = BlockOf<tarn::GammaPostBlendConfig>(answer, "PostBlendGC");
    for (const auto* list : {&igc->c0, &igc->c1, &igc->c2}) {
      EXPECT_EQ(list->size(), c.igc_entries);
      if (c.igc_entries > 1) EXPECT_EQ(list->front(), 0U);
      EXPECT_EQ(list->back(), (uint64_t{1} << c.igc_bits) - 1);
    }
    for (const auto* list : {&gc->c0, &gc->c1, &gc->c2}) {
      EXPECT_EQ(list->size(), c.gc_entries);
      EXPECT_EQ(list->back(), (uint64_t{1} << c.gc_bits) - 1);
    }
  };
  check({257, 12, 1024, 10});
  for (const Case& c : {Case{1024, 16, 2, 8}, {2, 1, 1024, 32}, {33, 32, 256, 1}, {1, 12, 1, 10}}) {
    EXPECT_EQ(Dimension(tarn::kZelPostBlendInverseGammaHwConfig, c.igc_entries, c.igc_bits), 0);
    EXPECT_EQ(Dimension(tarn::kZelPostBlendGammaHwConfig, c.gc_entries, c.gc_bits), 0);
    check(c);
  }
}

TEST_F(ModeParser, RefusedDimensionsChangeNothing) {
  struct Case {
    tarn::ZelProperty prop;
    uint32_t entries, bits;
  };
  for (const Case& c : {Case{tarn::kZelPostBlendInverseGammaHwConfig, 0, 12},
                        {tarn::kZelPostBlendGammaHwConfig, 1025, 10},
                        {tarn::kZelPostBlendInverseGammaHwConfig, 33, 0},
                        {tarn::kZelPostBlendGammaHwConfig, 33, 33},
                        {tarn::kZelPostBlendGamutHwConfig, 33, 12},
                        {tarn::kZelModesList, 17, 12},
                        {tarn::kZelPostBlendGamutHwConfig, 16, 12}}) {
    TakeLog();
    EXPECT_EQ(Dimension(c.prop, c.entries, c.bits), -22) << c.prop << " " << c.entries;
  }
  EXPECT_EQ(TakeLog(),
            std::vector<std::string>{"6 TARN-PARSER gamut table: 16 entries, expected 17"});
  const tarn::HwConfigOutputParams answer = Render("srgb");
  const auto& igc = BlockOf<tarn::GammaPostBlendConfig>(answer, "PostBlendIGC")->c0;
  EXPECT_EQ(igc.size(), 257U);
  EXPECT_EQ(igc.back(), 4095U);
  EXPECT_EQ(BlockOf<tarn::GammaPostBlendConfig>(answer, "PostBlendGC")->c0.size(), 1024U);
  EXPECT_EQ(Dimension(tarn::kZelPostBlendGamutHwConfig, 17, 16), 0);
}

TEST_F(ModeParser, RefusesEnvelopesThatAreNotExact) {
  tarn::ModeRenderInputParams request = {};
  tarn::HwConfigOutputParams answer;
  tarn::TarnPayload in = tarn::Wrap(&request);
  tarn::TarnPayload out = tarn::Wrap(&answer);
  const auto render = [&] { return parser_->ProcessOps(tarn::kZelModeRenderIntent, in, &out); };
  const auto refuses = [&](auto* field, uint32_t wrong) {
    const auto right = std::exchange(*field, wrong);
    EXPECT_EQ(render(), -22) << wrong;
    *field = right;
    EXPECT_EQ(TakeLog().size(), 1U) << wrong;
  };
  EXPECT_EQ(render(), 0) << "the native mode is 0, 0, 0";
  refuses(&in.version, 25);
  refuses(&in.len, 2911);
  refuses(&in.prop, 1);
  refuses(&request.version, 2908);
  refuses(&out.len, 33);
  refuses(&out.version, 0);
  refuses(&answer.version, 56);
  in.payload = nullptr;
  EXPECT_EQ(render(), -22);

  tarn::ColorModeList list = {.version = 32, .modes = {}};
  tarn::TarnPayload payload = tarn::Wrap(&list, tarn::kZelModesList);
  EXPECT_EQ(parser_->GetProperty(&payload), -22);
  payload.prop = 2;
  EXPECT_EQ(parser_->GetProperty(&payload), -22);
  EXPECT_EQ(parser_->GetProperty(nullptr), -22);
  tarn::PostBlendHwConfig config;  // version 0
  EXPECT_EQ(parser_->SetProperty(tarn::Wrap(&config, tarn::kZelPostBlendGammaHwConfig)), -22);
  EXPECT_EQ(TakeLog().size(), 5U) << "one line for each refusal";
}

TEST_F(ModeParser, RefusesUnknownModesAndOperations) {
  tarn::HwConfigOutputParams answer;
  EXPECT_EQ(Ask(parser_.get(), tarn::kZelModeRenderIntent, {.gamut = 1, .gamma = 1, .intent = 9},
                &answer),
            -22);
  EXPECT_EQ(TakeLog(),
            std::vector<std::string>{"6 TARN-PARSER no mode with gamut 1, gamma 1, intent 9"});
  EXPECT_EQ(Ask(parser_.get(), tarn::kZelPccMerge, {.gamut = 1, .gamma = 1, .intent = 0}, &answer),
            -95);
  EXPECT_TRUE(answer.payloads.empty());
}

TEST_F(ModeParser, MayBeStartedAndStoppedAgain) {
  EXPECT_EQ(parser_->Init("/nonexistent/panel.json"), -22);
  EXPECT_EQ(ModesOf(parser_.get()).size(), 7U) << "a refused description loses nothing";
  EXPECT_EQ(parser_->Init(PANELS "lcd-srgb.json"), 0);
  EXPECT_EQ(ModesOf(parser_.get()).front().label, "native");
  EXPECT_NE(ModesOf(parser_.get()).size(), 7U);
  EXPECT_EQ(parser_->DeInit(), 0);
  EXPECT_EQ(parser_->DeInit(), 0);
  tarn::HwConfigOutputParams answer;
  EXPECT_EQ(Ask(parser_.get(), tarn::kZelModeRenderIntent, {.gamut = 0, .gamma = 0, .intent = 0},
                &answer),
            -22);
  EXPECT_EQ(parser_->Init(kPhone), 0);
  EXPECT_EQ(ModesOf(parser_.get()).size(), 7U);
}

}  // namespace
