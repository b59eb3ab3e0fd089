// SPDX-License-Identifier: Apache-2.0

// The mode parser on the panels that ship: what it answers and refuses.
#include <android/log.h>

#include <cstdarg>
#include <cstdio>
#include <map>
#include <tuple>

#include "convert/blob_config.h"
#include "convert/dither_config.h"
#include "convert/gamut_gamma_config.h"
#include "convert/pa_de_config.h"
#include "tests/devkit/reference/parser_host.h"

namespace {

using tarn::reference::MaxCode;

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
