// SPDX-License-Identifier: Apache-2.0
#include <limits>
#include <utility>

#include "tests/support/bytes.h"
#include "tests/support/pcc.h"

using velaricolor::HwConfigOutputParams;

namespace {

class Attenuation : public PccTest {};

TEST_F(Attenuation, ScalesEveryTermAndEnables) {
  Start();
  pcc_coeff_data coeffs = {.reserved = {1, 2, 3, 4, 5, 6, 7, 8}, .r = {20, 1}, .g = {}, .b = {}};
  for (zeltarn::PccRow* row : {&coeffs.g, &coeffs.b}) row->fill(0.1);
  coeffs.r[10] = 0.3;
  for (const double factor :
       {1.0, 0.5, 0.0, -2.0, 0.7, 3.0, std::numeric_limits<double>::quiet_NaN()}) {
    SCOPED_TRACE(factor);
    if (factor != 1.0) ASSERT_EQ(Set(velaricolor::kVcDimmingPcc, factor), 0);
    const auto second = HostBlock(coeffs, false);
    HwConfigOutputParams output;
    output.payloads = {HostEntry(HostBlock(coeffs, false)), HostEntry(second)};
    ASSERT_EQ(Render(&output), 0);
    EXPECT_EQ(BytesOf(PccOf(output)->coeffs), BytesOf(Scaled(coeffs, factor)));
    EXPECT_TRUE(PccOf(output)->enable);
    EXPECT_EQ(BytesOf(second->coeffs), BytesOf(coeffs));
    EXPECT_FALSE(second->enable);
  }
}

TEST_F(Attenuation, TakesTheBlockAsItStands) {
  Start();
  ASSERT_EQ(Set(velaricolor::kVcDimmingPcc, 0.5), 0);
  HwConfigOutputParams output;
  const pcc_coeff_data untouched = {.reserved = {}, .r = {20, 1}, .g = {}, .b = {}};
  const auto second = HostBlock(untouched, false);
  output.payloads = {{.hw_block = "PostBlendPCC", .len = 3}, HostEntry(second)};
  ASSERT_EQ(Render(&output), 0);
  EXPECT_EQ(output.payloads[0].payload, nullptr);
  EXPECT_EQ(output.payloads[0].len, 3U);
  EXPECT_EQ(BytesOf(second->coeffs), BytesOf(untouched));

  output.payloads.clear();
  ParserAnswers({.reserved = {}, .r = {20, 1}, .g = {}, .b = {}}, true);
  for (const auto& [anew, offset] :
       {std::pair(true, 10.0), {true, 10.0}, {false, 5.0}, {false, 2.5}}) {
    if (!anew) Parser().blocks.clear();
    ASSERT_EQ(Render(&output), 0);
    EXPECT_EQ(PccOf(output)->coeffs.r[0], offset);
    EXPECT_EQ(PccOf(output)->coeffs.r[1], offset / 20);
  }
}

}  // namespace
