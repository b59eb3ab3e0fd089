// SPDX-License-Identifier: Apache-2.0

// The colour blocks of an answer in the order in which a picture passes them:
// IGC, gamut, PCC, GC.
#pragma once

#include <cstdint>

#include "devkit/reference/color/matrix.h"
#include "devkit/zelctl/blocks/gamma_block.h"
#include "devkit/zelctl/blocks/gamut_block.h"
#include "devkit/zelctl/blocks/pcc_block.h"
#include "modes/mode_op_params.h"

namespace zelctl {

// Holds copies only, so it may outlive the answer.
class BlockPipeline {
 public:
  // The depths are those of the blocks' codes, as the host set them. Throws
  // std::runtime_error where a block can't be computed with.
  BlockPipeline(const velaricolor::HwConfigOutputParams& output, uint32_t igc_bits,
                uint32_t gc_bits);

  // The content's signal, red, green and blue from 0 to 1, to the signal that
  // the panel is driven with.
  tarn::color::Vec3 Apply(const tarn::color::Vec3& signal) const;

  const GammaBlock& Igc() const { return igc_; }
  const GamutBlock& Gamut() const { return gamut_; }
  const PccCopy& Pcc() const { return pcc_; }  // empty where light passes
  const GammaBlock& Gc() const { return gc_; }

 private:
  GammaBlock igc_;
  GamutBlock gamut_;
  PccCopy pcc_;
  GammaBlock gc_;
};

}  // namespace zelctl
