// SPDX-License-Identifier: Apache-2.0
#include "devkit/reference/parser/color_blocks.h"

#include <algorithm>

#include "convert/gamut_gamma_config.h"
#include "devkit/reference/gamma_lut.h"
#include "devkit/reference/panel/read_blocks.h"
#include "devkit/reference/parser/target_to_panel.h"
#include "devkit/reference/pcc_polynomial.h"
#include "pcc/pcc_config.h"
#include "plugin/names.h"

namespace tarn::reference {
namespace {

// The channels' tables hold the codes of `curve`, of a channel and an input, along `axis`.
template <typename Curve>
std::shared_ptr<GammaPostBlendConfig> GammaTable(GammaAxis axis,
                                                 const zeltarn::TableDimensions& size,
                                                 Curve curve) {
  auto record = std::make_shared<GammaPostBlendConfig>(size.num_of_entries);
  record->enable = true;
  const std::array<std::vector<uint32_t>*, 3> tables = {&record->c0, &record->c1, &record->c2};
  for (size_t channel = 0; channel < tables.size(); ++channel) {
    for (size_t i = 0; i < size.num_of_entries; ++i) {
      const double output = curve(channel, AxisInput(axis, i, size.num_of_entries));
      tables[channel]->push_back(ToCode(output, size.bit_depth));
    }
  }
  return record;
}

}  // namespace

HwConfigPayload IgcBlock(const Panel& panel, const Target& target,
                         const zeltarn::TableDimensions& size) {
  const auto curve = [&](size_t channel, double signal) {
    return ToLight(target.transfer, panel.luminance, channel, signal);
  };
  return MakeBlock(velaricolor::kPostBlendIGC, GammaTable(GammaAxis::kIgc, size, curve));
}

HwConfigPayload GcBlock(const Panel& panel, const zeltarn::TableDimensions& size) {
  const auto curve = [&](size_t channel, double light) {
    return ToSignal(panel.transfer, channel, light);
  };
  return MakeBlock(velaricolor::kPostBlendGC, GammaTable(GammaAxis::kGc, size, curve));
}

HwConfigPayload PccBlock(const Panel& panel, const Target& target) {
  const auto [matrix, offset] = TargetToPanel(panel, target);
  auto record = std::make_shared<PccPostBlendConfig>();
  record->enable = true;
  const std::array<zeltarn::PccRow*, 3> rows = {&record->coeffs.r, &record->coeffs.g,
                                                &record->coeffs.b};
  for (size_t i = 0; i < 3; ++i) {
    (*rows[i])[0] = kPccRange * offset[i];
    std::copy(matrix[i].begin(), matrix[i].end(), rows[i]->begin() + 1);
  }
  return MakeBlock(velaricolor::kPostBlendPCC, std::move(record));
}

}  // namespace tarn::reference
