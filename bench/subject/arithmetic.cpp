// SPDX-License-Identifier: Apache-2.0

// The PCC arithmetic against the same loops on plain arrays.

#include "pcc/pcc_arithmetic.h"

#include "bench/subject/pairs.h"

namespace {

pcc_coeff_data g_trans;
pcc_coeff_data g_active;
pcc_coeff_data g_result;

void SetUp(size_t /*argument*/) {
  g_trans = {.reserved = {}, .r = {0, 0.9, 0.1, 0}, .g = {0, 0, 1, 0}, .b = {0, 0, 0.1, 0.9}};
  g_active = g_trans;
  g_result = g_trans;
}

void TearDown() {}

void Product(unsigned calls) {
  for (; calls > 0; --calls) {
    velaricolor::Multiply3x3(g_trans, g_active, &g_result);
    Keep(&g_result);
  }
}

void ProductInline(unsigned calls) {
  constexpr size_t kRows = 3;
  using Rows = double[kRows][zeltarn::kPccTerms];  // NOLINT: plain arrays are the point
  const Rows& trans = reinterpret_cast<const Rows&>(g_trans.r);
  const Rows& active = reinterpret_cast<const Rows&>(g_active.r);
  Rows& result = reinterpret_cast<Rows&>(g_result.r);
  for (; calls > 0; --calls) {
    for (size_t row = 0; row < kRows; ++row) {
      for (size_t term = 0; term < zeltarn::kPccTerms; ++term) {
        result[row][term] = (trans[row][1] * active[0][term] + trans[row][2] * active[1][term]) +
                            trans[row][3] * active[2][term];
      }
    }
    Keep(&g_result);
  }
}

void Dimming(unsigned calls) {
  for (; calls > 0; --calls) {
    velaricolor::Scale(1.0, &g_result);
    Keep(&g_result);
  }
}

void DimmingInline(unsigned calls) {
  using Terms = double[3 * zeltarn::kPccTerms];  // NOLINT: plain arrays are the point
  Terms& terms = reinterpret_cast<Terms&>(g_result.r);
  double factor = 1.0;
  for (; calls > 0; --calls) {
    Keep(&factor);
    for (double& term : terms) term *= factor;
    Keep(&g_result);
  }
}

}  // namespace

std::vector<ZelPair> ArithmeticPairs() {
  return {
      {"3x3 product", 1.1, kMedian, 5000, 0, SetUp, Product, ProductInline, TearDown, 0},
      {"dimming", 0, kMedian, 5000, 0, SetUp, Dimming, DimmingInline, TearDown, 0},
  };
}
