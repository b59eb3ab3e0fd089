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

// The three channels' tables hold the codes of `curve` along `axis`.
template <typename Curve>
std::shared_ptr<GammaPostBlendConfig> GammaTable(GammaAxis axis, const TableDimensions& size,
                                                 Curve curve) {
  auto record = std::make_shared<GammaPostBlendConfig>(size.num_of_entries);
  record->enable = true;
  for (size_t i = 0; i < size.num_of_entries; ++i) {
    record->c0.push_back(ToCode(curve(AxisInput(axis, i, size.num_of_entries)), size.bit_depth));
  }
  record->c1 = record->c0;
  record->c2 = record->c0;
  return record;
}

}  // namespace

HwConfigPayload IgcBlock(const Panel& panel, const Target& target, const TableDimensions& size) {
  const auto curve = [&](double signal) {
    return ToLight(target.transfer, panel.luminance, signal);
  };
  return MakeBlock(velaricolor::kPostBlendIGC, GammaTable(GammaAxis::kIgc, size, curve));
}

HwConfigPayload GcBlock(const Panel& panel, const TableDimensions& size) {
  const auto curve = [&](double light) { return ToSignal(panel.transfer, light); };
  return MakeBlock(velaricolor::kPostBlendGC, GammaTable(GammaAxis::kGc, size, curve));
}

HwConfigPayload PccBlock(const Panel& panel, const Target& target) {
  const auto [matrix, offset] = TargetToPanel(panel, target);
  auto record = std::make_shared<PccPostBlendConfig>();
  record->enable = true;
  const std::array<PccRow*, 3> rows = {&record->coeffs.r, &record->coeffs.g, &record->coeffs.b};
  for (size_t i = 0; i < 3; ++i) {
    (*rows[i])[0] = kPccRange * offset[i];
    std::copy(matrix[i].begin(), matrix[i].end(), rows[i]->begin() + 1);
  }
  return MakeBlock(velaricolor::kPostBlendPCC, std::move(record));
}

}  // namespace tarn::reference
