// SPDX-License-Identifier: Apache-2.0
#include "devkit/reference/pcc_polynomial.h"

#include <algorithm>
#include <cmath>
#include <map>

#include "devkit/reference/algo/affine_merge.h"
#include "devkit/reference/algo/exact_sum.h"

namespace tarn::reference {
namespace {

// A polynomial of red, green and blue of any degree.
using Polynomial = std::map<Exponents, ExactSum>;

Polynomial Multiply(const Polynomial& a, const zeltarn::PccRow& b) {
  Polynomial product;
  for (const auto& [exponents, coefficient] : a) {
    for (size_t term = 0; term < zeltarn::kPccTerms; ++term) {
      if (b[term] == 0) continue;
      Exponents sum = exponents;
      for (size_t i = 0; i < 3; ++i) {
        sum[i] = static_cast<uint8_t>(sum[i] + kPccExponents[term][i]);
      }
      product[sum].Add(coefficient.Times(b[term]));
    }
  }
  return product;
}

// The product of the rows of `active`, each as often as `exponents` says.
Polynomial Monomial(const pcc_coeff_data& active, const Exponents& exponents) {
  const std::array<const zeltarn::PccRow*, 3> rows = {&active.r, &active.g, &active.b};
  Polynomial product = {{{0, 0, 0}, ExactSum(1)}};
  for (size_t i = 0; i < 3; ++i) {
    for (uint8_t n = 0; n < exponents[i]; ++n) product = Multiply(product, *rows[i]);
  }
  return product;
}

using Monomials = std::array<Polynomial, zeltarn::kPccTerms>;

ComposeError ComposeRow(const zeltarn::PccRow& trans, const Monomials& monomials,
                        zeltarn::PccRow* result) {
  Polynomial sum;
  for (size_t term = 0; term < zeltarn::kPccTerms; ++term) {
    for (const auto& [exponents, coefficient] : monomials[term]) {
      sum[exponents].Add(coefficient.Times(trans[term]));
    }
  }
  *result = {};
  for (const auto& [exponents, coefficient] : sum) {
    const double value = coefficient.Value();
    if (!coefficient.IsExact() || !std::isfinite(value)) return ComposeError::kOutOfRange;
    if (coefficient.IsZero()) continue;
    const auto* term = std::find(kPccExponents.begin(), kPccExponents.end(), exponents);
    if (term == kPccExponents.end()) return ComposeError::kNotRepresentable;
    (*result)[static_cast<size_t>(term - kPccExponents.begin())] = value;
  }
  return ComposeError::kNone;
}

bool IsFinite(const pcc_coeff_data& pcc) {
  const auto finite = [](const zeltarn::PccRow& row) {
    return std::all_of(row.begin(), row.end(), [](double c) { return std::isfinite(c); });
  };
  return finite(pcc.r) && finite(pcc.g) && finite(pcc.b);
}

}  // namespace

std::array<double, 3> Evaluate(const pcc_coeff_data& pcc, const std::array<double, 3>& rgb) {
  std::array<double, 3> out = {};
  for (size_t term = 0; term < zeltarn::kPccTerms; ++term) {
    double product = 1;
    for (size_t i = 0; i < 3; ++i) {
      for (uint8_t n = 0; n < kPccExponents[term][i]; ++n) product *= rgb[i];
    }
    out[0] += pcc.r[term] * product;
    out[1] += pcc.g[term] * product;
    out[2] += pcc.b[term] * product;
  }
  return out;
}

ComposeError Compose(const pcc_coeff_data& trans, const pcc_coeff_data& active,
                     pcc_coeff_data* result) {
  if (!IsFinite(trans) || !IsFinite(active)) return ComposeError::kNotFinite;
  if (ComposeAffine(trans, active, result)) return ComposeError::kNone;
  Monomials monomials;
  for (size_t term = 0; term < zeltarn::kPccTerms; ++term) {
    const bool needed = trans.r[term] != 0 || trans.g[term] != 0 || trans.b[term] != 0;
    if (needed) monomials[term] = Monomial(active, kPccExponents[term]);
  }
  pcc_coeff_data composed = {};
  for (const auto row : {&pcc_coeff_data::r, &pcc_coeff_data::g, &pcc_coeff_data::b}) {
    const ComposeError error = ComposeRow(trans.*row, monomials, &(composed.*row));
    if (error != ComposeError::kNone) return error;
  }
  *result = composed;
  return ComposeError::kNone;
}

}  // namespace tarn::reference
