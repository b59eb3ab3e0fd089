// SPDX-License-Identifier: Apache-2.0

// PCC blocks to merge, and what comes out.
#pragma once

#include <string>
#include <vector>

#include "pcc/pcc_config.h"

namespace zelctl {

// Largest difference of a merged coefficient, relative to it or to 1.
inline constexpr double kMergeTolerance = 1e-9;

struct PccSample {
  std::string name;
  pcc_coeff_data pcc;
};

const PccSample& Identity();

// Matrices, with and without offsets.
const std::vector<PccSample>& AffineSamples();

// One with higher-order terms, all of them: squared, it has terms that no block has,
// whatever the order of the terms.
const PccSample& HigherOrderSample();

// `trans` after `active`, both without higher-order terms.
pcc_coeff_data MergeAffine(const pcc_coeff_data& trans, const pcc_coeff_data& active);

// "g[2] is 0.5 instead of 0.25" for the first coefficient beyond the tolerance; else empty.
std::string FirstDifference(const pcc_coeff_data& found, const pcc_coeff_data& expected);

}  // namespace zelctl
