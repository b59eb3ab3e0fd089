// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/blocks/block_pipeline.h"

#include "devkit/zelctl/blocks/block_record.h"
#include "plugin/names.h"

namespace zelctl {
namespace {

using tarn::color::Vec3;
using tarn::reference::GammaAxis;

PccCopy CopyEnabledPcc(const velaricolor::HwConfigOutputParams& output) {
  const auto* record =
      EnabledRecord<velaricolor::PccPostBlendConfig>(output, velaricolor::kPostBlendPCC);
  return record == nullptr ? std::nullopt : PccCopy(*record);
}

}  // namespace

BlockPipeline::BlockPipeline(const velaricolor::HwConfigOutputParams& output, uint32_t igc_bits,
                             uint32_t gc_bits)
    : igc_(GammaAxis::kIgc, igc_bits, output),
      gamut_(output),
      pcc_(CopyEnabledPcc(output)),
      gc_(GammaAxis::kGc, gc_bits, output) {}

Vec3 BlockPipeline::Apply(const Vec3& signal) const {
  return gc_.Apply(ApplyPcc(pcc_, gamut_.Apply(igc_.Apply(signal))));
}

}  // namespace zelctl
