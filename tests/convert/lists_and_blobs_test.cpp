// SPDX-License-Identifier: Apache-2.0

// What the gamma lists and the blobs hold after a conversion.

#include <array>
#include <numeric>

#include "convert/blob_config.h"
#include "convert/gamut_gamma_config.h"
#include "tests/support/plugin_host.h"

using velaricolor::HwConfigOutputParams;
using Table = std::vector<uint32_t>;

namespace {

Table Ramp(uint32_t first, size_t entries) {
  Table table(entries);
  std::iota(table.begin(), table.end(), first);
  return table;
}

class GammaLists : public PluginTest {
 protected:
  // Gives the parser a block with lists of these lengths, all values distinct.
  static void Answer(const std::string& block, size_t c0, size_t c1, size_t c2) {
    const auto record = std::make_shared<tarn::GammaPostBlendConfig>();
    record->enable = true;
    record->c0 = Ramp(10000, c0);
    record->c1 = Ramp(20000, c1);
    record->c2 = Ramp(30000, c2);
    Parser().dither = {Block(block, record)};
  }
};

TEST_F(GammaLists, HoldAsManyEntriesAsTheHostDimensioned) {
  Start();
  const struct {
    const char* block;
    uint32_t prop;
    const char* converter;
    uint32_t at_first;
  } blocks[] = {{"PostBlendIGC", 8, "ConvertPostBlendInvGammaPayload", 257},
                {"PostBlendGC", 7, "ConvertPostBlendGammaPayload", 1024}};
  for (const auto& block : blocks) {
    HwConfigOutputParams reused;
    const auto get = [&](HwConfigOutputParams* output) {
      return Get(velaricolor::kVcPbDitherHwConfig, output);
    };
    for (const uint32_t n : {block.at_first, 3U, 1024U, 1U, 700U}) {
      SCOPED_TRACE(block.block + std::string(" ") + std::to_string(n));
      if (!reused.payloads.empty()) {
        ASSERT_EQ(Set(block.prop, velaricolor::PostBlendHwConfig{.num_of_entries = n}), 0);
      }
      Answer(block.block, n, n + 1, size_t{2} * n);
      HwConfigOutputParams fresh;
      for (HwConfigOutputParams* const output : {&fresh, &reused}) {
        ASSERT_EQ(get(output), 0);
        const auto* record = RecordNamed<velaricolor::GammaPostBlendConfig>(*output, block.block);
        EXPECT_EQ(record->c0, Ramp(10000, n));
        EXPECT_EQ(record->c1, Ramp(20000, n));
        EXPECT_EQ(record->c2, Ramp(30000, n));
      }
    }
    // 700 entries by now; one too few in any list is refused.
    auto* const kept = RecordNamed<velaricolor::GammaPostBlendConfig>(reused, block.block);
    kept->enable = false;
    kept->c0 = kept->c1 = kept->c2 = {5};
    for (const size_t channel : {0U, 1U, 2U}) {
      SCOPED_TRACE(block.block + std::string(" short channel ") + std::to_string(channel));
      std::array<size_t, 3> entries = {700, 700, 700};
      --entries[channel];
      Answer(block.block, entries[0], entries[1], entries[2]);
      Parser().dither[0].len = 99;
      HwConfigOutputParams fresh;
      EXPECT_EQ(get(&fresh), -22);
      EXPECT_TRUE(fresh.payloads.empty());
      EXPECT_EQ(Platform().TakeLog().at(0),
                std::string("E ") + block.converter + ": Invalid parameters");
      EXPECT_EQ(get(&reused), -22);
      EXPECT_EQ(reused.payloads[0].len, 88U);
      EXPECT_FALSE(kept->enable);
      for (const Table* list : {&kept->c0, &kept->c1, &kept->c2}) EXPECT_EQ(*list, Table{5});
      Platform().TakeLog();
    }
  }
}

class Blobs : public PluginTest {};

TEST_F(Blobs, ArriveByteForByte) {
  Start();
  HwConfigOutputParams output;
  for (const std::string& text : {std::string("a\0b\0", 4), std::string(5000, 'x'), {}}) {
    const auto hdr = std::make_shared<tarn::HdrBlobPostBlendConfig>();
    const auto game = std::make_shared<tarn::GameBlobPostBlendConfig>();
    hdr->blob = text;
    game->blob = text + "!";
    Parser().dither = {Block("PostBlendHdrBlob", hdr), Block("PostBlendGameBlob", game)};
    ASSERT_EQ(Get(velaricolor::kVcPbDitherHwConfig, &output), 0);
    const auto* const host_hdr =
        RecordNamed<velaricolor::HdrBlobPostBlendConfig>(output, "PostBlendHdrBlob");
    EXPECT_EQ(host_hdr->blob, text);
    const auto* const host_game =
        RecordNamed<velaricolor::GameBlobPostBlendConfig>(output, "PostBlendGameBlob");
    EXPECT_EQ(host_game->blob, text + "!");
  }
}

}  // namespace
