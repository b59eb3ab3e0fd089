// SPDX-License-Identifier: Apache-2.0
#include <array>
#include <limits>
#include <random>
#include <tuple>

#include "tests/support/bytes.h"
#include "tests/support/pcc.h"
#include "tests/support/rows.h"

using velaricolor::HwConfigOutputParams;

namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

// The bytes of a record: its first two words, then matrices.
Bytes Joined(const std::array<uint32_t, 2>& words, const std::vector<pcc_coeff_data>& matrices) {
  Bytes bytes = BytesOf(words);
  for (const pcc_coeff_data& matrix : matrices) {
    const Bytes more = BytesOf(matrix);
    bytes.insert(bytes.end(), more.begin(), more.end());
  }
  return bytes;
}

class Composition : public PccTest {};

enum Library { kReady, kFailing, kAbsent, kRefusing, kLost };
enum Result { kMerged, kProduct, kPlain };
struct MergeCase {
  const char* name;
  Library library;
  bool enabled;                   // the parser's block
  std::array<double, 3> offsets;  // the transform's
  Result result;
};
const MergeCase kMergeCases[] = {
    {"merged with offset", kReady, true, {0, 5}, kMerged},
    {"merging nothing", kReady, false, {}, kPlain},
    {"merge fails", kFailing, true, {}, kPlain},
    {"multiplied", kAbsent, true, {}, kProduct},
    {"library refuses", kRefusing, true, {-0.0, -0.0, -0.0}, kProduct},
    {"library lost", kLost, true, {}, kProduct},
    {"multiplying nothing", kAbsent, false, {}, kPlain},
    {"red offset", kAbsent, true, {1e-300}, kPlain},
    {"negative red offset", kAbsent, true, {-5}, kPlain},
    {"green offset", kAbsent, true, {0, 5}, kPlain},
    {"negative green offset", kAbsent, true, {0, -5}, kPlain},
    {"negative blue offset", kAbsent, true, {0, 0, -5}, kPlain},
    {"blue offset", kAbsent, true, {0, 0, kNan}, kPlain},
};

class CompositionOf : public PccTest, public testing::WithParamInterface<MergeCase> {};
ZEL_TEST_ROWS(CompositionOf, kMergeCases);

TEST_P(CompositionOf, ByLibraryByProductOrNotAtAll) {
  const MergeCase& c = GetParam();
  Platform().algo_opens = c.library != kAbsent;
  Algo() = {.init_result = c.library == kRefusing ? 7 : 0,
            .merge_result = c.library == kFailing ? 1 : 0,
            .merged = {Random(3)}};
  Start();
  if (c.library == kLost) {
    Plugin().DeInit();
    Platform().algo_opens = false;
    ASSERT_EQ(Init(), 0);
  }
  const pcc_coeff_data trans = Random(1, c.offsets);
  const pcc_coeff_data active = Random(2, {0.1, 0.2, 0.3});
  ParserAnswers(active, c.enabled);
  SetLtm(trans);
  Platform().TakeLog();
  Platform().TakeEvents();

  HwConfigOutputParams output;
  ASSERT_EQ(Render(&output), 0);
  EXPECT_EQ(Platform().TakeLog(),
            c.library == kFailing ? Lines{"E ColorIntfPCCMultiply: Failed to process kZelPccMerge"}
                                  : Lines());
  EXPECT_TRUE(PccOf(output)->enable);
  EXPECT_EQ(BytesOf(PccOf(output)->coeffs), BytesOf(c.result == kMerged    ? Random(3)
                                                    : c.result == kProduct ? Product(trans, active)
                                                                           : trans));
  const bool asked = c.enabled && c.library <= kFailing;
  ASSERT_EQ(Algo().merges.size(), asked ? 1U : 0U);
  if (!asked) return;
  EXPECT_EQ(BytesOf(Algo().merges[0]), Joined({552, 0}, {trans, active}));
  EXPECT_EQ(BytesOf(Algo().blank), Joined({280, 0}, {pcc_coeff_data()}));
  EXPECT_EQ(Platform().TakeEvents(), (Lines{"parser ProcessOps 0", "algo ProcessOps 2"}));
  EXPECT_EQ(WordsOf(Algo().in), (Words{24, 552, 0, 0}));
  EXPECT_EQ(WordsOf(Algo().out), (Words{24, 280, 0, 0}));
}

// Worked out apart, each step rounded to a double. Another order of the sums, or steps
// fused into one rounding, would show in these.
TEST_F(Composition, ProductHasTheSameBitsOnEveryMachine) {
  Platform().algo_opens = false;
  Start();
  ParserAnswers({{}, {0, 0.7, 0.1, 0.9}, {0, 1.1, 0.3, 0.7}, {0, 1.3, 0.7, 0.3}}, true);
  SetLtm({{}, {0, 0.1, 0.2, 0.3}, {0, 0.3, 0.7, 0.9}, {0, -1.7, 0.6, 1e-3}});
  HwConfigOutputParams output;
  ASSERT_EQ(Render(&output), 0);
  EXPECT_EQ(PccOf(output)->coeffs.r[3], 0x1.47ae147ae147ap-2);
  EXPECT_EQ(PccOf(output)->coeffs.g[1], 0x1.1333333333334p+1);
  EXPECT_EQ(PccOf(output)->coeffs.b[2], 0x1.5e9e1b089a01cp-7);
}

TEST_F(Composition, FindsAppendsAndCompletesTheBlock) {
  Start();
  const auto other = HostBlock(Random(8), true);
  const struct {
    const char* name;
    std::vector<velaricolor::HwConfigPayload> before;
    size_t entries;
    size_t used;
  } cases[] = {
      {"none", {}, 1, 0},
      {"another name", {{.hw_block = "PostBlendPcc", .payload = other, .len = 280}}, 2, 1},
      {"without record", {{.hw_block = "PostBlendPCC", .len = 3}}, 1, 0},
      {"first without", {{.hw_block = "PostBlendPCC", .len = 3}, HostEntry(other)}, 2, 0},
      {"two", {HostEntry(HostBlock(Random(7), false)), HostEntry(other)}, 2, 0},
  };
  SetLtm(Random(1));
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    HwConfigOutputParams output = {.payloads = c.before};
    ASSERT_EQ(Render(&output), 0);
    ASSERT_EQ(output.payloads.size(), c.entries);
    const auto& entry = output.payloads[c.used];
    EXPECT_EQ(std::tie(entry.version, entry.hw_block, entry.len),
              std::make_tuple(56U, "PostBlendPCC", 280U));
    const auto& block = *static_cast<const velaricolor::PccPostBlendConfig*>(entry.payload.get());
    EXPECT_EQ(BytesOf(block), BytesOf(velaricolor::PccPostBlendConfig{
                                  .version = 280, .enable = true, .coeffs = Random(1)}));
    EXPECT_EQ(BytesOf(other->coeffs), BytesOf(Random(8)));
  }
}

TEST_F(Composition, ChangesTheRecordInPlaceAndNotItsLen) {
  Start();
  SetLtm(Random(1));
  const auto shared = HostBlock(Random(2), false);
  HwConfigOutputParams output;
  output.payloads = {HostEntry(shared)};
  output.payloads[0].len = 99;
  ASSERT_EQ(Render(&output), 0);
  EXPECT_EQ(output.payloads[0].payload, shared);
  EXPECT_EQ(output.payloads[0].len, 99U);
  EXPECT_EQ(BytesOf(shared->coeffs), BytesOf(Random(1)));
}

// In LTM's record and in the host's PCC block.
TEST_F(Composition, TakesAnyByteButZeroAsEnabled) {
  Platform().algo_opens = false;
  Platform().log_level = "2";
  Start();
  const pcc_coeff_data trans = Random(1);
  const pcc_coeff_data active = Random(2);
  for (const uint8_t byte : Bytes{1, 2, 0x80, 0xFF}) {
    SCOPED_TRACE(testing::PrintToString(byte));
    const auto enabled_as = [byte](const pcc_coeff_data& coeffs) {
      auto record = HostBlock(coeffs, false);
      std::memcpy(reinterpret_cast<char*>(record.get()) + 4, &byte, 1);
      return record;
    };
    EXPECT_EQ(Plugin().SetProperty({.len = 280, .prop = 13, .payload = enabled_as(trans).get()}),
              0);
    EXPECT_EQ(Platform().TakeLog(), Lines{"I SetLtmPccConfig: Set ltm PCC config enable 1"});
    const auto block = enabled_as(active);
    HwConfigOutputParams output;
    output.payloads = {HostEntry(block)};
    ASSERT_EQ(Render(&output), 0);
    EXPECT_EQ(BytesOf(*block)[4], 1);
    EXPECT_EQ(BytesOf(block->coeffs), BytesOf(Product(trans, active)));
    Platform().TakeLog();
  }
}

}  // namespace
