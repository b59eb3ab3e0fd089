// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/blocks/pcc_block.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

#include "devkit/reference/pcc_polynomial.h"
#include "devkit/zelctl/blocks/block_record.h"
#include "plugin/names.h"

namespace zelctl {

using tarn::color::Vec3;
using tarn::reference::kPccRange;

PccCopy CopyPcc(const velaricolor::HwConfigOutputParams& output) {
  const auto* payload = FindBlock(output, velaricolor::kPostBlendPCC);
  if (payload == nullptr) return std::nullopt;
  const auto* record = RecordOf<velaricolor::PccPostBlendConfig>(*payload);
  return record == nullptr ? std::nullopt : std::optional(*record);
}

Vec3 ApplyPcc(const PccCopy& pcc, const Vec3& light) {
  if (!pcc || !pcc->enable) return light;
  for (const auto* row : {&pcc->coeffs.r, &pcc->coeffs.g, &pcc->coeffs.b}) {
    if (!std::all_of(row->begin(), row->end(), [](double c) { return std::isfinite(c); })) {
      throw std::runtime_error(velaricolor::kPostBlendPCC + ": a coefficient is no finite number");
    }
  }
  Vec3 result = tarn::reference::Evaluate(
      pcc->coeffs, {kPccRange * light[0], kPccRange * light[1], kPccRange * light[2]});
  for (double& component : result) {
    component /= kPccRange;
    if (!std::isfinite(component)) {
      throw std::runtime_error(velaricolor::kPostBlendPCC + ": its coefficients are too large");
    }
  }
  return result;
}

}  // namespace zelctl
