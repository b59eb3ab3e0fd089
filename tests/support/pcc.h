// SPDX-License-Identifier: Apache-2.0

// Tests that look at the PCC block.
#pragma once

#include "handlers/color_transform_matrix.h"
#include "pcc/pcc_config.h"
#include "tests/support/plugin_host.h"

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
