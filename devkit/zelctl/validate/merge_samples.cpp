// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/validate/merge_samples.h"

#include <algorithm>
#include <cmath>

#include "devkit/zelctl/json_output.h"
#include "pcc/pcc_arithmetic.h"

namespace zelctl {
namespace {

using Rows = std::array<zeltarn::PccRow, 3>;

constexpr pcc_coeff_data Pcc(const Rows& rows) {
  return {.reserved = {}, .r = rows[0], .g = rows[1], .b = rows[2]};
}

}  // namespace

const PccSample& Identity() {
  static const PccSample sample = {"identity", Pcc({{{0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}}})};
  return sample;
}

const std::vector<PccSample>& AffineSamples() {
  static const std::vector<PccSample> samples = {
      {"gains", Pcc({{{0, 0.9, 0, 0}, {0, 0, 0.8, 0}, {0, 0, 0, 0.55}}})},
      {"saturation", Pcc({{{0, 1.2, -0.15, -0.05}, {0, -0.1, 1.3, -0.2}, {0, -0.02, -0.3, 1.32}}})},
      {"inversion", Pcc({{{255, -1, 0, 0}, {255, 0, -1, 0}, {255, 0, 0, -1}}})},
      {"offsets", Pcc({{{12, 0.7, 0.2, 0.1}, {-3.5, 0.1, 0.8, 0.1}, {0.25, 0, 0.3, 0.6}}})},
      {"zero", Pcc({})},
  };
  return samples;
}

const PccSample& HigherOrderSample() {
  static const PccSample sample = {
      "higher terms", Pcc({{{1, 0.5, 0.1, 0.1, 1e-3, 2e-3, 3e-3, 4e-3, 5e-3, 6e-3, 1e-5},
                            {2, 0.1, 0.6, 0.1, 2e-3, 1e-3, 4e-3, 3e-3, 6e-3, 5e-3, 2e-5},
                            {3, 0.1, 0.1, 0.7, 3e-3, 4e-3, 1e-3, 2e-3, 5e-3, 6e-3, 3e-5}}})};
  return sample;
}

pcc_coeff_data MergeAffine(const pcc_coeff_data& trans, const pcc_coeff_data& active) {
  pcc_coeff_data merged = {};
  velaricolor::Multiply3x3(trans, active, &merged);
  merged.r[0] += trans.r[0];
  merged.g[0] += trans.g[0];
  merged.b[0] += trans.b[0];
  return merged;
}

std::string FirstDifference(const pcc_coeff_data& found, const pcc_coeff_data& expected) {
  const struct {
    const char* name;
    zeltarn::PccRow pcc_coeff_data::*row;
  } rows[] = {{"r", &pcc_coeff_data::r}, {"g", &pcc_coeff_data::g}, {"b", &pcc_coeff_data::b}};
  for (const auto& [name, row] : rows) {
    for (size_t term = 0; term < zeltarn::kPccTerms; ++term) {
      const double is = (found.*row)[term];
      const double should = (expected.*row)[term];
      if (std::abs(is - should) <= kMergeTolerance * std::max(1.0, std::abs(should))) continue;
      return std::string(name) + "[" + std::to_string(term) + "] is " + Json(is).dump() +
             " instead of " + Json(should).dump();
    }
  }
  return "";
}

}  // namespace zelctl
