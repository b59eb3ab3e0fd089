// SPDX-License-Identifier: Apache-2.0
#include "devkit/reference/algo/affine_merge.h"

#include <algorithm>
#include <cmath>

#include "devkit/reference/algo/exact_sum.h"

namespace tarn::reference {
namespace {

using zeltarn::PccRow;

constexpr size_t kAffineTerms = 4;

// Products within these have an error that a double holds, and sums that don't overflow.
constexpr double kSmallest = 0x1p-900;
constexpr double kLargest = 0x1p900;

bool IsAffine(const pcc_coeff_data& pcc) {
  for (const PccRow* row : {&pcc.r, &pcc.g, &pcc.b}) {
    if (std::any_of(row->begin() + kAffineTerms, row->end(), [](double c) { return c != 0; })) {
      return false;
    }
  }
  return true;
}

// A sum of up to four products as a double and what it lacks, to 2^-98 of the largest.
class LongSum {
 public:
  // False where the product is out of range.
  bool AddProduct(double a, double b) {
    if (a == 0 || b == 0) return true;
    const double product = a * b;
    const double size = std::abs(product);
    if (!(size >= kSmallest && size <= kLargest)) return false;
    Add(product);
    rest_ += std::fma(a, b, -product);
    return true;
  }

  // Rounds once. False where the exact sum lies so near the middle of two doubles that the
  // error of `rest_` decides.
  bool Round(double* value) const {
    if (largest_ == 0) {
      *value = 0;
      return true;
    }
    const double doubt = largest_ * 0x1p-97;  // eight roundings of `rest_`, each of 2^-101 at most
    *value = high_ + (rest_ + doubt);
    return *value == high_ + (rest_ - doubt);
  }

 private:
  // The error of a sum is exact (Knuth, The Art of Computer Programming, volume 2, section
  // 4.2.2, theorem B).
  void Add(double part) {
    largest_ = std::max(largest_, std::abs(part));
    const double sum = high_ + part;
    const double of_part = sum - high_;
    rest_ += (high_ - (sum - of_part)) + (part - of_part);
    high_ = sum;
  }

  double high_ = 0;
  double rest_ = 0;
  double largest_ = 0;
};

double Exactly(const PccRow& trans, const pcc_coeff_data& active, size_t term) {
  ExactSum sum;
  sum.Add(ExactSum(active.r[term]).Times(trans[1]));
  sum.Add(ExactSum(active.g[term]).Times(trans[2]));
  sum.Add(ExactSum(active.b[term]).Times(trans[3]));
  if (term == 0) sum.Add(trans[0]);
  return sum.Value();
}

bool ComposeRow(const PccRow& trans, const pcc_coeff_data& active, PccRow* result) {
  *result = {};
  for (size_t term = 0; term < kAffineTerms; ++term) {
    LongSum sum;
    // Ties are no rarity: figures with few decimals often end halfway.
    const bool in_range =
        sum.AddProduct(trans[1], active.r[term]) && sum.AddProduct(trans[2], active.g[term]) &&
        sum.AddProduct(trans[3], active.b[term]) && (term != 0 || sum.AddProduct(trans[0], 1));
    if (!in_range) return false;
    if (!sum.Round(&(*result)[term])) (*result)[term] = Exactly(trans, active, term);
  }
  return true;
}

}  // namespace

bool ComposeAffine(const pcc_coeff_data& trans, const pcc_coeff_data& active,
                   pcc_coeff_data* result) {
  if (!IsAffine(trans) || !IsAffine(active)) return false;
  pcc_coeff_data composed = {};
  if (!ComposeRow(trans.r, active, &composed.r) || !ComposeRow(trans.g, active, &composed.g) ||
      !ComposeRow(trans.b, active, &composed.b)) {
    return false;
  }
  *result = composed;
  return true;
}

}  // namespace tarn::reference
