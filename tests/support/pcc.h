// SPDX-License-Identifier: Apache-2.0

// Tests that look at the PCC block.
#pragma once

#include <array>
#include <random>
#include <utility>

#include "handlers/color_transform_matrix.h"
#include "pcc/pcc_config.h"
#include "tests/support/plugin_host.h"

// Full mantissas everywhere but for the offsets; `seed` in the reserved bytes.
inline pcc_coeff_data Random(uint8_t seed, const std::array<double, 3>& offsets = {}) {
  std::mt19937_64 engine(seed);
  std::uniform_real_distribution<double> number(-2, 2);
  pcc_coeff_data pcc;
  pcc.reserved.fill(seed);
  for (zeltarn::PccRow* row : {&pcc.r, &pcc.g, &pcc.b}) {
    for (double& term : *row) term = number(engine);
  }
  pcc.r[0] = offsets[0];
  pcc.g[0] = offsets[1];
  pcc.b[0] = offsets[2];
  return pcc;
}

inline pcc_coeff_data Product(const pcc_coeff_data& trans, const pcc_coeff_data& active) {
  pcc_coeff_data product = trans;
  for (zeltarn::PccRow* row : {&product.r, &product.g, &product.b}) {
    const zeltarn::PccRow t = *row;
    for (size_t j = 0; j < zeltarn::kPccTerms; ++j) {
      (*row)[j] = (t[1] * active.r[j] + t[2] * active.g[j]) + t[3] * active.b[j];
    }
  }
  return product;
}

inline pcc_coeff_data Scaled(pcc_coeff_data pcc, double factor) {
  for (zeltarn::PccRow* row : {&pcc.r, &pcc.g, &pcc.b}) {
    for (double& term : *row) term *= factor;
  }
  return pcc;
}

class PccTest : public PluginTest {
 protected:
  template <typename Config>
  static std::shared_ptr<Config> PccBlock(const pcc_coeff_data& coeffs, bool enable) {
    auto block = std::make_shared<Config>();
    block->enable = enable;
    block->coeffs = coeffs;
    return block;
  }
  static auto HostBlock(const pcc_coeff_data& coeffs, bool enable) {
    return PccBlock<velaricolor::PccPostBlendConfig>(coeffs, enable);
  }
  static velaricolor::HwConfigPayload HostEntry(
      std::shared_ptr<velaricolor::PccPostBlendConfig> block) {
    return {.hw_block = "PostBlendPCC", .payload = std::move(block), .len = 280};
  }
  static void ParserAnswers(const pcc_coeff_data& coeffs, bool enable) {
    Parser().blocks = {Block("PostBlendPCC", PccBlock<tarn::PccPostBlendConfig>(coeffs, enable))};
  }
  static velaricolor::PccPostBlendConfig* PccOf(const velaricolor::HwConfigOutputParams& output) {
    return RecordNamed<velaricolor::PccPostBlendConfig>(output, "PostBlendPCC");
  }

  // The one transform that a host gives with all its terms.
  void SetLtm(const pcc_coeff_data& coeffs, bool enable = true) {
    auto record = *HostBlock(coeffs, enable);
    record.version = 7;  // nobody looks at it
    ASSERT_EQ(Set(velaricolor::kVcLtmPccConfig, record), 0);
  }
};
