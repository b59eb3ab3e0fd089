// SPDX-License-Identifier: Apache-2.0

// Merging PCC matrices by the algorithm library, as the plug-in calls it.
#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <random>

#include "bridge/tarn_intf.h"
#include "devkit/reference/pcc_polynomial.h"
#include "pcc/pcc_merge.h"

namespace {

using tarn::reference::Evaluate;

class PccMerge : public testing::Test {
 protected:
  PccMerge() { EXPECT_EQ(algo_->Init("any text"), 0); }

  int Merge(const pcc_coeff_data& trans, const pcc_coeff_data& active) {
    tarn::PccMergeInput input = {.trans = trans, .active = active};
    output_ = {};
    tarn::TarnPayload out = tarn::Wrap(&output_);
    return algo_->ProcessOps(tarn::kZelPccMerge, tarn::Wrap(&input), &out);
  }

  std::unique_ptr<tarn::TarnAlgoIntf> algo_{GetTarnAlgoInterface(2, 0)};
  tarn::PccMergeOutput output_;
};

TEST_F(PccMerge, EqualsApplyingOneAfterTheOther) {
  std::mt19937 random(1);
  std::uniform_real_distribution<double> number(-1, 1);
  const auto matrix = [&](size_t terms) {
    pcc_coeff_data pcc = {};
    for (zeltarn::PccRow* row : {&pcc.r, &pcc.g, &pcc.b}) {
      for (size_t term = 0; term < terms; ++term) (*row)[term] = number(random);
    }
    return pcc;
  };
  // Red and green change places, and every channel has a scale and an offset.
  const pcc_coeff_data swap = {{}, {3, 0, 0.5}, {-7, -2}, {0, 0, 0, 1.25}};
  const std::pair<pcc_coeff_data, pcc_coeff_data> cases[] = {
      {matrix(4), matrix(11)}, {matrix(10), matrix(4)}, {matrix(11), swap}};
  for (const auto& [trans, active] : cases) {
    ASSERT_EQ(Merge(trans, active), 0);
    const std::array<double, 3> rgb = {number(random), number(random), number(random)};
    const auto expected = Evaluate(trans, Evaluate(active, rgb));
    const auto found = Evaluate(output_.result, rgb);
    for (size_t i = 0; i < 3; ++i) {
      EXPECT_NEAR(found[i], expected[i], 1e-12) << trans.r[1] << ", channel " << i;
    }
  }
}

// Rounding would hide or invent terms beyond the block's eleven.
TEST_F(PccMerge, IsExactOrRefused) {
  pcc_coeff_data active = {};
  // R + R^2 times R^2, less half of each of their squares: R^3 and R^4 cancel.
  active.r[1] = active.r[7] = active.g[7] = active.b[7] = 1;
  pcc_coeff_data trans = {};
  trans.r[4] = 1e20;
  trans.r[7] = trans.r[8] = -0.5e20;
  EXPECT_EQ(Merge(trans, active), 0);
  EXPECT_EQ(output_.result.r, (zeltarn::PccRow{0, 0, 0, 0, 0, 0, 0, -0.5e20}));
  // A 1 beside 1e20 gets lost in doubles, but the powers no longer cancel.
  trans.r[6] = 1;
  EXPECT_EQ(Merge(trans, active), -EDOM);

  for (const auto& [first, second, code] : {std::tuple{1e200, 1e200, -ERANGE},
                                            {3e-306, 0.3, -ERANGE},  // loses bits to underflow
                                            {3e-306, 0.25, 0},
                                            {std::nan(""), 1.0, -EINVAL},
                                            {1.0, -HUGE_VAL, -EINVAL}}) {
    trans = active = {};
    trans.r[1] = first;
    active.r[1] = second;
    EXPECT_EQ(Merge(trans, active), code) << first << " " << second;
    EXPECT_EQ(output_.result.r[1], code == 0 ? first * second : 0);
  }
}

// The merge makes one coefficient of three: their sum, rounded to a double once.
TEST_F(PccMerge, RoundsOnce) {
  const auto sum_of = [&](const std::array<double, 3>& parts) {
    pcc_coeff_data trans = {};
    trans.r = {0, parts[0], parts[1], parts[2]};
    EXPECT_EQ(Merge(trans, {{}, {0, 1}, {0, 1}, {0, 1}}), 0);
    return output_.result.r[1];
  };
  const struct {
    std::array<double, 3> parts;
    double sum;
  } cases[] = {
      {{1, 0x1p-53, 0x1p-120}, 1 + 0x1p-52},  // halfway, and a little more
      {{1, 0x1p-53, -0x1p-120}, 1},
      {{1, 0x1p-53, 0}, 1},  // halfway: the even one
      {{1 + 0x1p-52, 0x1p-53, 0}, 1 + 0x1p-51},
      {{1 + 0x1p-52, 0x1p-53, -0x1p-120}, 1 + 0x1p-52},
      {{-1, -0x1p-53, -0x1p-120}, -1 - 0x1p-52},
      {{1, -0x1p-54, -0x1p-120}, 1 - 0x1p-53},
      {{1, -0x1p-54, 0x1p-120}, 1},
      {{0x1p-300, 1, 0x1p-53}, 1 + 0x1p-52},
      {{1, 0x1p-60, -1}, 0x1p-60},
  };
  for (const auto& [parts, sum] : cases) {
    EXPECT_EQ(sum_of(parts), sum) << parts[0] << " " << parts[1] << " " << parts[2];
  }
  // Whole numbers of up to 120 bits, which the compiler rounds.
  std::mt19937_64 random(2);
  for (int i = 0; i < 10000; ++i) {
    std::array<double, 3> parts;
    __int128 exact = 0;
    for (double& part : parts) {
      const auto digits = static_cast<int64_t>(random()) >> (11 + random() % 40);
      const int shift = static_cast<int>(random() % 66);
      part = std::ldexp(static_cast<double>(digits), shift);
      exact += static_cast<__int128>(digits) * (static_cast<__int128>(1) << shift);
    }
    ASSERT_EQ(sum_of(parts), static_cast<double>(exact)) << parts[0] << " " << parts[1];
  }
}

TEST_F(PccMerge, RefusesOtherCalls) {
  EXPECT_EQ(GetTarnAlgoInterface(2, 1), nullptr);
  tarn::PccMergeInput input;
  const tarn::TarnPayload in = tarn::Wrap(&input);
  tarn::TarnPayload out = tarn::Wrap(&output_);
  EXPECT_EQ(algo_->ProcessOps(tarn::kZelPccMerge, in, nullptr), -EINVAL);
  EXPECT_EQ(algo_->ProcessOps(tarn::kZelPccMerge, out, &out), -EINVAL);
  EXPECT_EQ(algo_->ProcessOps(tarn::kZelModeRenderIntent, in, &out), -EOPNOTSUPP);
  EXPECT_EQ(algo_->DeInit(), 0);
  EXPECT_EQ(algo_->ProcessOps(tarn::kZelPccMerge, in, &out), -EINVAL);
}

}  // namespace
