// SPDX-License-Identifier: Apache-2.0

// The colour steps of a mode switch: their order, and what they run on.
#include "tests/support/bytes.h"
#include "tests/support/pcc.h"

using velaricolor::HwConfigOutputParams;

namespace {

class RenderIntent : public PccTest {};

TEST_F(RenderIntent, FollowsTheOrderTransformLtmDimming) {
  // Transform: red = G, green = 2 R. LTM: red = 3 R + G, and an offset of blue.
  velaricolor::ColorTransformMatrix transform;
  transform.matrix = {0, 2, 0, 0, 1, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
  const pcc_coeff_data transform_pcc = {{}, {0, 0, 1}, {0, 2}, {0, 0, 0, 1}};
  const struct {
    const char* name;
    bool enabled;  // the parser's block: the identity, and red's offset of 10
    double ltm_offset;
    pcc_coeff_data expected;  // by product
  } cases[] = {
      {"all", true, 0, {{}, {10, 1, 1.5}, {10, 1}, {0, 0, 0, 0.5}}},
      {"transform replaces", false, 0, {{}, {0, 1, 1.5}, {0, 1}, {0, 0, 0, 0.5}}},
      {"ltm replaces", true, 4, {{}, {0, 1.5, 0.5}, {0, 0, 0.5}, {2, 0, 0, 0.5}}},
  };
  for (const auto& c : cases) {
    for (const bool library : {false, true}) {
      SCOPED_TRACE(c.name + std::string(library ? " by library" : " by product"));
      Platform().algo_opens = library;
      Algo() = {.merged = {Random(3), Random(4)}};
      Start();
      const pcc_coeff_data active = {{}, {10, 1}, {0, 0, 1}, {0, 0, 0, 1}};
      const pcc_coeff_data ltm = {{}, {0, 3, 1}, {0, 0, 1}, {c.ltm_offset, 0, 0, 1}};
      ParserAnswers(active, c.enabled);
      ASSERT_EQ(Set(velaricolor::kVcColorTransform, transform), 0);
      SetLtm(ltm);
      ASSERT_EQ(Set(velaricolor::kVcDimmingPcc, 0.5), 0);
      HwConfigOutputParams output;
      ASSERT_EQ(Render(&output), 0);

      std::vector<tarn::PccMergeInput> merges;
      velaricolor::PccPostBlendConfig expected = *HostBlock(c.expected, true);
      if (library) {
        if (c.enabled) merges.push_back({.trans = transform_pcc, .active = active});
        merges.push_back({.trans = ltm, .active = c.enabled ? Random(3) : transform_pcc});
        expected.coeffs = Scaled(Random(c.enabled ? 4 : 3), 0.5);
      }
      EXPECT_EQ(BytesOf(*PccOf(output)), BytesOf(expected));
      ASSERT_EQ(Algo().merges.size(), merges.size());
      for (size_t i = 0; i < merges.size(); ++i) {
        EXPECT_EQ(BytesOf(Algo().merges[i]), BytesOf(merges[i])) << "merge " << i;
      }
    }
  }
}

TEST_F(RenderIntent, RunsOnWhateverAFailedModeBrought) {
  const auto pcc = Block("PostBlendPCC", PccBlock<tarn::PccPostBlendConfig>(Random(2), true));
  const tarn::HwConfigPayload unknown = {.hw_block = "PostBlendMixerGc", .payload = {}};
  const pcc_coeff_data transform = {{}, {0, 2}, {0, 0, 3}, {0, 0, 0, 4}};
  const pcc_coeff_data ltm = {{}, {0, 5}, {0, 0, 6}, {0, 0, 0, 7}};
  const pcc_coeff_data both = Product(ltm, transform);
  const struct {
    const char* name;
    int parsers_result;
    std::vector<tarn::HwConfigPayload> blocks;
    pcc_coeff_data undimmed;
  } cases[] = {
      {"parser fails with a block", -5, {pcc}, Product(ltm, Product(transform, Random(2)))},
      {"parser fails without", -5, {}, both},
      {"conversion ends before the block", 0, {unknown, pcc}, both},
      {"conversion ends after it", 0, {pcc, unknown}, Product(ltm, Product(transform, Random(2)))},
  };
  Platform().algo_opens = false;
  Start();
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    ASSERT_EQ(Set(velaricolor::kVcColorTransform,
                  velaricolor::ColorTransformMatrix{
                      .matrix = {2, 0, 0, 0, 0, 3, 0, 0, 0, 0, 4, 0, 0, 0, 0, 1}}),
              0);
    SetLtm(ltm);
    ASSERT_EQ(Set(velaricolor::kVcDimmingPcc, 0.5), 0);
    Parser().process_result = c.parsers_result;
    Parser().blocks = c.blocks;
    HwConfigOutputParams output;
    ASSERT_EQ(Render(&output), 0);
    EXPECT_EQ(BytesOf(PccOf(output)->coeffs), BytesOf(Scaled(c.undimmed, 0.5)));
    EXPECT_TRUE(PccOf(output)->enable);
    EXPECT_FALSE(NeedsUpdate());

    // That LTM was on is known, and then that it is off.
    ASSERT_EQ(Set(velaricolor::kVcColorTransform, velaricolor::ColorTransformMatrix()), 0);
    SetLtm(ltm, false);
    Parser().blocks.clear();
    for (const std::string names : {"PostBlendPCC ", ""}) {
      HwConfigOutputParams off;
      ASSERT_EQ(Render(&off), 0);
      EXPECT_EQ(NamesOf(off), names);
    }
  }
}

// A parser may answer with the same record again and again.
TEST_F(RenderIntent, NeverWritesToTheParsersRecord) {
  Platform().algo_opens = false;
  Start();
  const auto lent = PccBlock<tarn::PccPostBlendConfig>(Random(2), true);
  Parser().blocks = {Block("PostBlendPCC", lent)};
  SetLtm(Random(1));
  ASSERT_EQ(Set(velaricolor::kVcDimmingPcc, 0.5), 0);
  HwConfigOutputParams lists[2];
  for (const bool again : {false, true}) {
    for (HwConfigOutputParams& list : lists) {
      SCOPED_TRACE(again);
      ASSERT_EQ(Render(&list), 0);
      EXPECT_EQ(BytesOf(PccOf(list)->coeffs), BytesOf(Scaled(Product(Random(1), Random(2)), 0.5)));
      EXPECT_EQ(BytesOf(lent->coeffs), BytesOf(Random(2)));
    }
  }
  EXPECT_NE(lists[0].payloads[0].payload, lists[1].payloads[0].payload);
}

TEST_F(RenderIntent, LeavesSoftwareAssetsAlone) {
  Start();
  ASSERT_EQ(Set(velaricolor::kVcColorTransform, velaricolor::ColorTransformMatrix{.matrix = {2}}),
            0);
  SetLtm(Random(1));
  ASSERT_EQ(Set(velaricolor::kVcDimmingPcc, 0.5), 0);
  ParserAnswers(Random(2), false);
  HwConfigOutputParams output;
  ASSERT_EQ(Run(velaricolor::kVcModeSwAssets, {}, &output), 0);
  ASSERT_EQ(output.payloads.size(), 1U);
  EXPECT_EQ(BytesOf(PccOf(output)->coeffs), BytesOf(Random(2)));
  EXPECT_FALSE(PccOf(output)->enable);
}

TEST_F(RenderIntent, NoticesOnceThatLtmWasSwitchedOff) {
  Start();
  enum Before { kBlock, kNothing, kNoRecord };
  for (const Before before : {kBlock, kNothing, kNoRecord}) {
    SCOPED_TRACE(before);
    SetLtm(Random(1));
    EXPECT_TRUE(NeedsUpdate());
    HwConfigOutputParams on;
    ASSERT_EQ(Render(&on), 0);
    SetLtm(Random(1), false);
    HwConfigOutputParams refused = {.version = 31, .payloads = {}};
    EXPECT_EQ(Render(&refused), -22);
    HwConfigOutputParams assets;
    ASSERT_EQ(Run(velaricolor::kVcModeSwAssets, {}, &assets), 0);
    EXPECT_TRUE(assets.payloads.empty());
    HwConfigOutputParams off;
    if (before == kBlock) off.payloads = {HostEntry(HostBlock(Random(2), true))};
    if (before == kNoRecord) off.payloads = {{.hw_block = "PostBlendPCC", .len = 3}};
    ASSERT_EQ(Render(&off), 0);
    ASSERT_EQ(off.payloads.size(), 1U);
    if (before == kNoRecord) {
      EXPECT_EQ(off.payloads[0].payload, nullptr);
      EXPECT_EQ(off.payloads[0].len, 3U);
    } else {
      const pcc_coeff_data expected = before == kBlock ? Random(2) : pcc_coeff_data();
      EXPECT_EQ(BytesOf(PccOf(off)->coeffs), BytesOf(expected));
      EXPECT_TRUE(PccOf(off)->enable);  // by dimming
    }
    HwConfigOutputParams third;
    ASSERT_EQ(Render(&third), 0);
    EXPECT_TRUE(third.payloads.empty());
  }
  EXPECT_TRUE(Algo().merges.empty());
}

}  // namespace
