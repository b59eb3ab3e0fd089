// Merging PCC matrices by the algorithm library, as the plug-in calls it.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <random>

#include "devkit/reference/pcc_polynomial.h"
#include "pcc/pcc_merge.h"
#include "tests/devkit/reference/captured_log.h"
#include "tests/devkit/reference/opened_library.h"

namespace {

using tarn::reference::Evaluate;

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

class PccMerge : public testing::Test {
 protected:
  PccMerge() { EXPECT_EQ(algo_->Init("any text"), 0); }

  int Merge(const pcc_coeff_data& trans, const pcc_coeff_data& active) {
    tarn::PccMergeInput input = {.trans = trans, .active = active};
    output_ = {};
    tarn::TarnPayload out = tarn::Wrap(&output_);
    return algo_->ProcessOps(tarn::kZelPccMerge, tarn::Wrap(&input), &out);
  }

  // A matrix with numbers in the given terms, in every row.
  pcc_coeff_data Random(const std::vector<size_t>& terms) {
    pcc_coeff_data pcc = {};
    std::uniform_real_distribution<double> number(-1, 1);
    for (PccRow* row : {&pcc.r, &pcc.g, &pcc.b}) {
      for (const size_t term : terms) (*row)[term] = number(random_);
    }
    return pcc;
  }

  OpenedLibrary<tarn::TarnAlgoIntf> library_{ALGO_LIBRARY, "GetTarnAlgoInterface"};
  std::unique_ptr<tarn::TarnAlgoIntf> algo_ = library_.New();
  tarn::PccMergeOutput output_;
  std::mt19937 random_{1};
};

const std::vector<size_t> kAll = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
const std::vector<size_t> kAffine = {0, 1, 2, 3};
const std::vector<size_t> kQuadratic = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9};

pcc_coeff_data Diagonal(double red, double green, double blue) {
  pcc_coeff_data pcc = {};
  pcc.r[1] = red;
  pcc.g[2] = green;
  pcc.b[3] = blue;
  return pcc;
}

// Swaps red and green, and scales.
pcc_coeff_data Permutation() {
  pcc_coeff_data pcc = {};
  pcc.r[2] = 0.5;
  pcc.g[1] = -2;
  pcc.b[3] = 3;
  return pcc;
}

TEST_F(PccMerge, EqualsApplyingOneAfterTheOther) {
  struct Case {
    const char* what;
    std::function<pcc_coeff_data()> trans;
    std::function<pcc_coeff_data()> active;
  };
  const Case cases[] = {
      {"linear after anything", [&] { return Random(kAffine); }, [&] { return Random(kAll); }},
      {"all terms after scaling", [&] { return Random(kAll); },
       [] { return Diagonal(0.25, 1.5, -3); }},
      {"all terms after a permutation", [&] { return Random(kAll); }, [] { return Permutation(); }},
      {"quadratic after affine", [&] { return Random(kQuadratic); },
       [&] { return Random(kAffine); }},
      {"a tiny matrix after a power of two", [] { return Diagonal(3e-306, -0x1p-1022, 1e-300); },
       [] { return Diagonal(1, 1, 0.25); }},
      {"affine after a disabled channel", [&] { return Random(kAffine); },
       [] { return Diagonal(0, 1, 1); }},
      {"all terms after an offset along each axis", [&] { return Random(kAll); },
       [&] {
         pcc_coeff_data pcc = Diagonal(0.5, 1.25, 2);
         pcc.r[0] = 3;
         pcc.g[0] = -7;
         return pcc;
       }},
  };
  std::uniform_real_distribution<double> component(0, 255);
  for (const Case& c : cases) {
    for (int round = 0; round < 50; ++round) {
      const pcc_coeff_data trans = c.trans();
      const pcc_coeff_data active = c.active();
      ASSERT_EQ(Merge(trans, active), 0) << c.what;
      const std::array<double, 3> rgb = {component(random_), component(random_),
                                         component(random_)};
      // The tolerance is relative to the sum of the terms' magnitudes: they may cancel.
      const auto magnitude = [](pcc_coeff_data pcc, std::array<double, 3> color) {
        for (PccRow* row : {&pcc.r, &pcc.g, &pcc.b}) {
          for (double& c0 : *row) c0 = std::abs(c0);
        }
        for (double& value : color) value = std::abs(value);
        return Evaluate(pcc, color);
      };
      const auto expected = Evaluate(trans, Evaluate(active, rgb));
      const auto scale = magnitude(trans, magnitude(active, rgb));
      const auto found = Evaluate(output_.result, rgb);
      for (size_t i = 0; i < 3; ++i) {
        EXPECT_NEAR(found[i], expected[i], 1e-12 * scale[i]) << c.what << ", channel " << i;
      }
    }
  }
}

TEST_F(PccMerge, TermsBeyondTheElevenMustVanishExactly) {
  // (R + G)(R - G) holds no term R G, but R^2 G of the product with B does not fit.
  pcc_coeff_data active = Diagonal(1, -1, 1);
  active.r[2] = 1;
  active.g[1] = 1;
  pcc_coeff_data trans = Diagonal(1, 1, 1);
  trans.r[4] = 1;
  ASSERT_EQ(Merge(trans, active), 0);
  EXPECT_EQ(output_.result.r[7], 1);
  EXPECT_EQ(output_.result.r[8], -1);
  EXPECT_EQ(output_.result.r[4], 0);
  trans.r[10] = 1;
  EXPECT_EQ(Merge(trans, active), -EDOM);

  // With red' = R + R^2 and green' = blue' = R^2, the powers R^3 and R^4 cancel.
  active = {};
  active.r[1] = active.r[7] = active.g[7] = active.b[7] = 1;
  trans = {};
  trans.r[4] = 1e20;
  trans.r[7] = trans.r[8] = -0.5e20;
  ASSERT_EQ(Merge(trans, active), 0);
  PccRow expected = {};
  expected[7] = -0.5e20;
  EXPECT_EQ(output_.result.r, expected);
  // A 1 beside 1e20 gets lost in doubles, but the powers no longer cancel.
  trans.r[6] = 1;
  EXPECT_EQ(Merge(trans, active), -EDOM);
}

TEST_F(PccMerge, RefusesWhatItCannotRepresent) {
  const auto with = [](double value, PccRow pcc_coeff_data::*row, size_t term) {
    pcc_coeff_data pcc = Diagonal(1, 1, 1);
    (pcc.*row)[term] = value;
    return pcc;
  };
  const pcc_coeff_data identity = Diagonal(1, 1, 1);
  struct Case {
    const char* what;
    pcc_coeff_data trans;
    pcc_coeff_data active;
    int code;
  };
  for (const Case& c : {
           Case{"R^2 after R^2", with(1, &pcc_coeff_data::r, 7), with(1, &pcc_coeff_data::r, 7),
                -EDOM},
           {"R G B after a mix", with(1, &pcc_coeff_data::b, 10), with(0.5, &pcc_coeff_data::g, 1),
            -EDOM},
           {"G B after G^2", with(1, &pcc_coeff_data::g, 5), with(2, &pcc_coeff_data::g, 8), -EDOM},
           {"NaN in trans", with(kNan, &pcc_coeff_data::g, 0), identity, -EINVAL},
           {"NaN in active", identity, with(kNan, &pcc_coeff_data::b, 10), -EINVAL},
           {"infinity", with(-kInfinity, &pcc_coeff_data::r, 4), identity, -EINVAL},
           {"overflow", with(1e200, &pcc_coeff_data::r, 1), with(1e200, &pcc_coeff_data::r, 1),
            -ERANGE},
           {"bits lost to underflow", with(3e-306, &pcc_coeff_data::r, 1),
            with(0.3, &pcc_coeff_data::r, 1), -ERANGE},
           {"underflow", with(1e-200, &pcc_coeff_data::r, 1), with(1e-200, &pcc_coeff_data::r, 1),
            -ERANGE},
       }) {
    TakeLog();
    EXPECT_EQ(Merge(c.trans, c.active), c.code) << c.what;
    EXPECT_EQ(TakeLog().size(), 1U) << c.what;
    EXPECT_EQ(output_.result.r, PccRow{}) << c.what;
  }
}

// Envelopes are checked as the mode parser's are.
TEST_F(PccMerge, ObjectAndEnvelope) {
  EXPECT_EQ(library_.New(2, 1), nullptr);
  EXPECT_EQ(library_.New(1, 0), nullptr);

  tarn::PccMergeInput input = {.trans = Diagonal(1, 1, 1), .active = Diagonal(1, 1, 1)};
  const tarn::TarnPayload in = tarn::Wrap(&input);
  tarn::TarnPayload out = tarn::Wrap(&output_);
  EXPECT_EQ(algo_->ProcessOps(tarn::kZelPccMerge, in, nullptr), -EINVAL);
  EXPECT_EQ(algo_->ProcessOps(tarn::kZelPccMerge, out, &out), -EINVAL);
  EXPECT_EQ(algo_->ProcessOps(tarn::kZelModeRenderIntent, in, &out), -EOPNOTSUPP);
  EXPECT_EQ(algo_->SetProperty(out), -EOPNOTSUPP);
  EXPECT_EQ(algo_->GetProperty(&out), -EOPNOTSUPP);
  EXPECT_EQ(algo_->DeInit(), 0);
  EXPECT_EQ(algo_->DeInit(), 0);
  EXPECT_EQ(Merge(input.trans, input.active), -EINVAL);
  EXPECT_EQ(algo_->Init(""), 0);
  EXPECT_EQ(Merge(input.trans, input.active), 0);
}

}  // namespace
