// SPDX-License-Identifier: Apache-2.0
#include "pcc/pcc_arithmetic.h"

namespace velaricolor {

namespace {

// By value, so that the compiler need not fear that the result overlaps.
zeltarn::PccRow ProductRow(const zeltarn::PccRow& trans, const pcc_coeff_data& active) {
  zeltarn::PccRow row;
  for (size_t term = 0; term < zeltarn::kPccTerms; ++term) {
    row[term] = (trans[1] * active.r[term] + trans[2] * active.g[term]) + trans[3] * active.b[term];
  }
  return row;
}

}  // namespace

void Multiply3x3(const pcc_coeff_data& trans, const pcc_coeff_data& active, pcc_coeff_data* out) {
  out->r = ProductRow(trans.r, active);
  out->g = ProductRow(trans.g, active);
  out->b = ProductRow(trans.b, active);
}

void Scale(double factor, pcc_coeff_data* pcc) {
  for (zeltarn::PccRow* const row : {&pcc->r, &pcc->g, &pcc->b}) {
    for (double& term : *row) term *= factor;
  }
}

}  // namespace velaricolor
