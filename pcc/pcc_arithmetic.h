// SPDX-License-Identifier: Apache-2.0

// Arithmetic on PCC matrices, in double precision. Every product rounds on its
// own (the build forbids contraction) and sums are formed in the order written,
// so that results are bit-equal on every machine, but for which NaN comes out where
// one does.
#pragma once

#include "pcc/pcc_config.h"

namespace velaricolor {

// out = the 3x3 part of `trans` applied to the result of `active`: row i of the
// output is (t1 * r + t2 * g) + t3 * b over all terms of the rows of `active`,
// with t1, t2, t3 the linear terms of row i of `trans`. Offsets and higher terms
// of `trans` are not read, and out->reserved is not written. `out` must not be
// `active`.
void Multiply3x3(const pcc_coeff_data& trans, const pcc_coeff_data& active, pcc_coeff_data* out);

// Multiplies all 33 coefficients by `factor`; `reserved` is not touched.
void Scale(double factor, pcc_coeff_data* pcc);

}  // namespace velaricolor
