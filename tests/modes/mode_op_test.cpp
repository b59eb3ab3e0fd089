// SPDX-License-Identifier: Apache-2.0

// What render intent and software assets share, and what sets them apart.
#include <cstring>
#include <memory>
#include <numeric>
#include <tuple>
#include <utility>

#include "convert/dither_config.h"
#include "handlers/color_transform_matrix.h"
#include "pcc/pcc_config.h"
#include "tests/support/bytes.h"
#include "tests/support/plugin_host.h"

using velaricolor::DitherPostBlendConfig;
using velaricolor::HwConfigOutputParams;
using velaricolor::kVcModeRenderIntent;
using velaricolor::kVcModeSwAssets;
using velaricolor::ModeRenderInputParams;
using velaricolor::VcPayload;

namespace {

class ModeOp : public PluginTest, public testing::WithParamInterface<velaricolor::VcOps> {
 protected:
  static bool Renders() { return GetParam() == kVcModeRenderIntent; }
  static std::string Name() { return Renders() ? "ModeRenderIntent" : "ModeSwAssets"; }

  int Run(HwConfigOutputParams* output) {
    return PluginTest::Run(GetParam(), ModeRenderInputParams(), output);
  }
};
INSTANTIATE_TEST_SUITE_P(, ModeOp, testing::Values(kVcModeRenderIntent, kVcModeSwAssets));

tarn::HwConfigPayload Dither(uint8_t value) {
  auto record = std::make_shared<tarn::DitherPostBlendConfig>();
  record->params[0] = value;
  return Block("PostBlendDither", record);
}

tarn::HwConfigPayload PaDither() {
  return Block("PostBlendPaDither", std::make_shared<tarn::PaDitherPostBlendConfig>());
}

tarn::HwConfigPayload OfVersion(uint32_t version, tarn::HwConfigPayload block) {
  block.version = version;  // nobody looks at it
  return block;
}

TEST_P(ModeOp, RefusesMalformedRecordsUnlessThereAreNoModes) {
  struct Side {
    uint32_t len;
    uint32_t version;
    bool addressed = true;
  };
  const std::string lengths = "E Process" + Name() + ": len of Input params exp 2912 act ";
  const std::string check = "E VersionCheck: ";
  const std::tuple<Side, Side, std::string> cases[] = {
      {{2913, 2912}, {32, 32}, lengths + "2913 output exp 32 act 32"},
      {{2912, 2912}, {33, 32}, lengths + "2912 output exp 32 act 33"},
      {{1, 0, false}, {2, 0, false}, lengths + "1 output exp 32 act 2"},
      {{2912, 0, false}, {32, 31}, check + "Invalid params : p (nil)K"},
      {{2912, 2912}, {32, 32, false}, check + "Invalid params : p (nil)K"},
      {{2912, 2908}, {32, 32, false}, check + "invalid version 2908 expected 2912"},
      {{2912, 2912}, {32, 33}, check + "invalid version 33 expected 32"},
  };
  const std::vector<tarn::ColorMode> some = Parser().modes;
  for (const auto& modes : {some, {}}) {
    Parser().modes = modes;
    Start();
    Parser().blocks = {Dither(1)};
    ASSERT_EQ(Set(velaricolor::kVcDimmingPcc, 1.0), 0);
    for (const auto& [in_side, out_side, line] : cases) {
      SCOPED_TRACE(line);
      auto request = ModeRenderInputParams();
      request.version = in_side.version;
      HwConfigOutputParams output = {.version = out_side.version,
                                     .payloads = {{.hw_block = "mine"}}};
      const VcPayload in = {.len = in_side.len, .payload = in_side.addressed ? &request : nullptr};
      VcPayload out = {.len = out_side.len, .payload = out_side.addressed ? &output : nullptr};
      EXPECT_EQ(Plugin().ProcessOps(GetParam(), in, &out), modes.empty() ? 0 : -22);
      EXPECT_EQ(Platform().TakeLog(), modes.empty() ? Lines() : Lines{line});
      EXPECT_EQ(Platform().TakeEvents(), Lines());
      EXPECT_EQ(NamesOf(output), "mine ");
      EXPECT_TRUE(NeedsUpdate());
    }
  }
}

TEST_P(ModeOp, HandsTheParserTheRequestWithoutLabelOrPadding) {
  auto request = ModeRenderInputParams();
  request.hw_assets = {"first", "second"};
  request.mode = {.gamut = 1, .gamma = 2, .intent = 3, .hw_assets = {"third"}, .label = "label"};
  request.aux_enable = 0x5A;
  std::iota(request.aux_data.begin(), request.aux_data.end(), uint8_t{7});
  request.aux_word = 0x12345678;
  const std::pair<size_t, size_t> paddings[] = {{4, 4}, {44, 4}, {97, 3}, {2908, 4}};
  for (const auto& [offset, size] : paddings) {
    std::memset(reinterpret_cast<char*>(&request) + offset, 0xAA, size);
  }
  Start();
  std::string padding;
  Parser().during_call = [&] {
    for (const auto& [offset, size] : paddings) {
      padding.append(static_cast<const char*>(Parser().in.payload) + offset, size);
    }
    EXPECT_EQ(static_cast<tarn::HwConfigOutputParams*>(Parser().out.payload)->version, 32U);
  };
  HwConfigOutputParams output;
  // Operations don't look at the envelopes' own version.
  const VcPayload in = {.version = 0, .len = 2912, .prop = 99, .payload = &request};
  VcPayload out = {.version = 25, .len = 32, .prop = 99, .payload = &output};
  EXPECT_EQ(Plugin().ProcessOps(GetParam(), in, &out), 0);

  EXPECT_EQ(Platform().TakeEvents(),
            Lines{Renders() ? "parser ProcessOps 0" : "parser ProcessOps 1"});
  EXPECT_EQ(WordsOf(Parser().in), (Words{24, 2912, 0, 0}));
  EXPECT_EQ(WordsOf(Parser().out), (Words{24, 32, 0, 0}));
  EXPECT_EQ(padding, std::string(15, '\0'));
  const tarn::ModeRenderInputParams& seen = Parser().request;
  EXPECT_EQ(seen.version, 2912U);
  EXPECT_EQ(seen.hw_assets, request.hw_assets);
  EXPECT_EQ(std::tie(seen.mode.gamut, seen.mode.gamma, seen.mode.intent), (std::tuple{1U, 2U, 3U}));
  EXPECT_EQ(seen.mode.hw_assets, Lines{"third"});
  EXPECT_EQ(seen.mode.label, "");
  EXPECT_EQ(seen.aux_enable, 0x5A);
  EXPECT_EQ(seen.aux_data, request.aux_data);
  EXPECT_EQ(seen.aux_word, 0x12345678U);
}

// Bytes of the request, as a record that the answer only borrows. Both live until the
// colour steps are over.
TEST_P(ModeOp, RequestOutlivesTheAnswer) {
  Start();
  ASSERT_EQ(Set(5, velaricolor::ColorTransformMatrix{.matrix = {2}}), 0);
  ASSERT_EQ(Set(13, velaricolor::PccPostBlendConfig{.enable = true, .coeffs = {}}), 0);
  tarn::PaDitherPostBlendConfig borrowed = {.enable = true, .words = {}};
  borrowed.words.fill(0x12345678);
  constexpr size_t kAligned = 4;  // in aux_data
  auto request = ModeRenderInputParams();
  request.hw_assets = {std::string(reinterpret_cast<const char*>(&borrowed), sizeof borrowed)};
  std::memcpy(request.aux_data.data() + kAligned, &borrowed, sizeof borrowed);
  for (const bool own_memory : {true, false}) {
    const auto drop = [&](const void* record) {
      EXPECT_EQ(BytesAt(record, sizeof borrowed), BytesOf(borrowed));
      Platform().events.emplace_back("drop answer");
    };
    Parser().during_call = [&] {
      const auto& asked = *static_cast<const tarn::ModeRenderInputParams*>(Parser().in.payload);
      const void* const record = own_memory ? static_cast<const void*>(asked.hw_assets[0].data())
                                            : asked.aux_data.data() + kAligned;
      auto& answer = *static_cast<tarn::HwConfigOutputParams*>(Parser().out.payload);
      answer.payloads = {PaDither()};
      answer.payloads[0].payload = std::shared_ptr<void>(const_cast<void*>(record), drop);
    };
    HwConfigOutputParams output;
    ASSERT_EQ(PluginTest::Run(GetParam(), request, &output), 0);
    EXPECT_EQ(Platform().TakeEvents(),
              Renders() ? (Lines{"parser ProcessOps 0", "algo ProcessOps 2", "drop answer"})
                        : (Lines{"parser ProcessOps 1", "drop answer"}));
    const auto* const record =
        RecordNamed<velaricolor::PaDitherPostBlendConfig>(output, "PostBlendPaDither");
    EXPECT_TRUE(record->enable);
    EXPECT_EQ(record->words, borrowed.words);  // freed memory is used at its beginning
  }
}

TEST_P(ModeOp, DropsTheAnswerAtTheEndOfTheCall) {
  Start();
  Parser().blocks = {Dither(1)};
  const std::weak_ptr<void> answered = Parser().blocks[0].payload;
  HwConfigOutputParams output;
  ASSERT_EQ(Run(&output), 0);
  Parser().blocks.clear();
  EXPECT_TRUE(answered.expired());
}

const std::string kNotConverted =
    "E ConvertHwConfigOutputParams: Failed to convert for PostBlendDither from tarn to velari "
    "namespace";

TEST_P(ModeOp, ConvertsWhatTheParserAnsweredWhateverItsResult) {
  const tarn::HwConfigPayload unknown = {.hw_block = "PostBlendMixerGc", .payload = {}};
  const tarn::HwConfigPayload broken = {.hw_block = "PostBlendDither", .payload = {}};
  const std::string both = "PostBlendPaDither PostBlendDither ";
  const std::string failed = "E Process" + Name() + ": Failed to process kVc" + Name();
  const std::tuple<int, std::vector<tarn::HwConfigPayload>, std::string, Lines> cases[] = {
      {0, {}, "", {}},
      {0, {PaDither(), Dither(1)}, both, {}},
      {-5, {PaDither(), Dither(1)}, both, {failed + ", ret -5"}},
      {0, {PaDither(), unknown, Dither(1)}, "PostBlendPaDither ", {}},
      {0, {OfVersion(55, PaDither()), OfVersion(0, Dither(1))}, both, {}},
      {0,
       {PaDither(), broken, Dither(1)},
       "PostBlendPaDither ",
       {"E ConvertPostBlendDitherPayload: Invalid parameters", kNotConverted}},
  };
  Start();
  for (const auto& [result, blocks, names, log] : cases) {
    SCOPED_TRACE(testing::PrintToString(result) + " " + names + testing::PrintToString(log));
    ASSERT_EQ(Set(velaricolor::kVcDimmingPcc, 1.0), 0);
    Parser().process_result = result;
    Parser().blocks = blocks;
    HwConfigOutputParams output;
    EXPECT_EQ(Run(&output), Renders() ? 0 : result);
    EXPECT_EQ(NamesOf(output), names);
    EXPECT_EQ(Platform().TakeLog(), log);
    EXPECT_EQ(NeedsUpdate(), !Renders());
  }
}

// A parser may hand out one record for good: neither the colour steps nor another host's
// list reach it.
TEST_P(ModeOp, KeepsARecordThatIsHandedOutAgain) {
  Start();
  const auto pcc = std::make_shared<tarn::PccPostBlendConfig>();
  pcc->enable = true;
  pcc->coeffs.r[1] = pcc->coeffs.g[2] = pcc->coeffs.b[3] = 1;
  const tarn::PccPostBlendConfig before = *pcc;
  Parser().blocks = {Block("PostBlendPCC", pcc), Block("PostBlendPCC", pcc)};
  ASSERT_EQ(Set(velaricolor::kVcDimmingPcc, 0.5), 0);
  HwConfigOutputParams first;
  HwConfigOutputParams second;
  for (HwConfigOutputParams* output : {&first, &second, &first, &second}) {
    EXPECT_EQ(Run(output), 0);
    const auto* own = RecordNamed<velaricolor::PccPostBlendConfig>(*output, "PostBlendPCC");
    EXPECT_EQ(own->coeffs.g[2], Renders() ? 0.5 : 1) << "dimmed once";
  }
  EXPECT_EQ(std::memcmp(pcc.get(), &before, sizeof before), 0);
  EXPECT_EQ(pcc.use_count(), 3) << "the test's, and the parser's two blocks";
  EXPECT_NE(first.payloads[0].payload, second.payloads[0].payload);
}

TEST_P(ModeOp, UpdatesARepeatedOutputByName) {
  Start();
  Parser().blocks = {Dither(1)};
  HwConfigOutputParams output;
  EXPECT_EQ(Run(&output), 0);
  const auto first = std::static_pointer_cast<DitherPostBlendConfig>(output.payloads[0].payload);
  output.payloads.push_back({.hw_block = "PostBlendDither"});
  Parser().blocks.assign(100000, Dither(3));  // far more than there are names
  Parser().blocks.insert(Parser().blocks.begin(), PaDither());
  Parser().blocks.push_back(OfVersion(55, Dither(4)));
  EXPECT_EQ(Run(&output), 0);
  EXPECT_EQ(NamesOf(output), "PostBlendDither PostBlendDither PostBlendPaDither ");
  EXPECT_LE(output.payloads.capacity(), 2U + 10U) << "room for each name once";
  EXPECT_EQ(output.payloads[0].payload, first);
  EXPECT_EQ(first->params[0], 4);
  EXPECT_EQ(output.payloads[1].payload, nullptr);
  EXPECT_EQ(Platform().TakeLog(), Lines());

  output.payloads[0].version = 55;
  EXPECT_EQ(Run(&output), 0);
  EXPECT_EQ(first->params[0], 4);
  EXPECT_EQ(Platform().TakeLog(),
            (Lines{"E VersionCheck: invalid version 55 expected 56", kNotConverted}));
}

}  // namespace
