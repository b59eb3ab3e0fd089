#include "pcc/pcc_arithmetic.h"

namespace velaricolor {

void Multiply3x3(const pcc_coeff_data& trans, const pcc_coeff_data& active, pcc_coeff_data* out) {
  for (PccRow pcc_coeff_data::*const row :
       {&pcc_coeff_data::r, &pcc_coeff_data::g, &pcc_coeff_data::b}) {
    const PccRow& t = trans.*row;
    for (size_t term = 0; term < kPccTerms; ++term) {
      (out->*row)[term] = (t[1] * active.r[term] + t[2] * active.g[term]) + t[3] * active.b[term];
    }
  }
}

void Scale(double factor, pcc_coeff_data* pcc) {
  for (PccRow* const row : {&pcc->r, &pcc->g, &pcc->b}) {
    for (double& term : *row) term *= factor;
  }
}

}  // namespace velaricolor
