// SPDX-License-Identifier: Apache-2.0
#include <array>

#include "convert/dither_config.h"
#include "tests/support/bytes.h"
#include "tests/support/plugin_host.h"

using velaricolor::HwConfigOutputParams;

namespace {

class Getters : public PluginTest {};

TEST_F(Getters, AnswerOnlyTheExactLength) {
  const struct {
    uint32_t prop;
    const char* name;
    uint32_t len;
    int answer;  // of a flag
  } cases[] = {{1, "GetModesList", 32, -1},          {2, "GetNeedsUpdate", 1, 0},
               {9, "GetSupportTonemap", 1, 0},       {2054, "GetDimmingSupport", 1, 1},
               {2048, "GetSupportHwAssets", 24, -1}, {14, "GetPbDitheHwConfig", 32, -1}};
  for (const bool modes : {true, false}) {
    if (!modes) Parser().modes.clear();
    Start();
    for (const auto& c : cases) {
      SCOPED_TRACE(c.name);
      std::array<uint8_t, 64> record;
      record.fill(0x5A);
      const auto untouched = record;
      const auto refused = [&](uint32_t len, std::array<uint8_t, 64>* address) {
        EXPECT_EQ(Get(c.prop, address, len), -22) << len;
        EXPECT_EQ(Platform().TakeLog(),
                  Lines{std::string("E ") + c.name + ": len of Input params act " +
                        std::to_string(len) + " exp " + std::to_string(c.len)});
      };
      for (const uint32_t wrong : {c.len - 1, c.len + 1, 8 * c.len}) refused(wrong, &record);
      refused(c.len, nullptr);
      EXPECT_EQ(record, untouched);
      if (c.answer < 0) continue;
      EXPECT_EQ(Get(c.prop, &record, c.len), 0);
      EXPECT_EQ(record[0], c.answer);
      record[0] = 0x5A;
      EXPECT_EQ(record, untouched);
    }
    EXPECT_TRUE(Platform().TakeEvents().empty());
  }

  for (const size_t left_over : {0U, 2U, 5U}) {
    Lines assets(left_over, std::string(1 << 20, 'x'));
    EXPECT_EQ(Get(velaricolor::kVcSupportHwAssets, &assets), 0);
    EXPECT_EQ(assets, (Lines{"PostBlendGamut", "PostBlendIGC", "PostBlendGC"}));
    for (const std::string& name : assets) EXPECT_LT(name.capacity(), 100U) << "not released";
  }
  HwConfigOutputParams dither;
  EXPECT_EQ(Get(velaricolor::kVcPbDitherHwConfig, &dither), 0);
  EXPECT_TRUE(dither.payloads.empty());
  EXPECT_TRUE(Platform().TakeEvents().empty());
}

TEST_F(Getters, ConvertTheParsersDither) {
  const auto dither = Block("PostBlendDither", std::make_shared<tarn::DitherPostBlendConfig>());
  const auto pa_dither =
      Block("PostBlendPaDither", std::make_shared<tarn::PaDitherPostBlendConfig>());
  const auto unknown = Block("PostBlendMixerGc", std::make_shared<tarn::DitherPostBlendConfig>());
  const std::string failed = "E GetPbDitheHwConfig: Failed to get global dither hw config, ret 3";
  const std::string version = "E VersionCheck: invalid version 31 expected 32";
  const std::string unconverted =
      "E GetPbDitheHwConfig: Falied to convert pb dither hwe config to output";
  const struct {
    std::vector<tarn::HwConfigPayload> blocks;
    int parsers_result;
    uint32_t host_version;
    int result;
    Lines log;
    std::string names;  // in the host's list
  } cases[] = {
      {{dither, pa_dither}, 0, 32, 0, {}, "kept PostBlendDither PostBlendPaDither "},
      {{dither}, 3, 32, 3, {failed}, "kept "},
      {{dither, unknown, pa_dither}, 0, 32, -22, {unconverted}, "kept PostBlendDither "},
      {{dither}, 0, 31, -22, {version, unconverted}, "kept "},
  };
  Start();
  uint32_t asked_version = 0;
  Parser().during_call = [&] {
    asked_version = static_cast<const tarn::HwConfigOutputParams*>(Parser().out.payload)->version;
  };
  const auto sharers = dither.payload.use_count();
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::PrintToString(c.log) + std::to_string(c.blocks.size()));
    Parser().dither = c.blocks;
    Parser().dither_result = c.parsers_result;
    HwConfigOutputParams output = {.version = c.host_version, .payloads = {{.hw_block = "kept"}}};
    EXPECT_EQ(Get(velaricolor::kVcPbDitherHwConfig, &output), c.result);
    EXPECT_EQ(Platform().TakeLog(), c.log);
    EXPECT_EQ(Platform().TakeEvents(), Lines{"parser GetProperty 12"});
    EXPECT_EQ(WordsOf(Parser().out), (Words{24, 32, 12, 0}));
    EXPECT_EQ(asked_version, 32U);
    EXPECT_EQ(NamesOf(output), c.names);
    Parser().dither.clear();
    EXPECT_EQ(dither.payload.use_count(), sharers) << "not dropped";
  }
}

}  // namespace
