// SPDX-License-Identifier: Apache-2.0

// The gamut block as a function.
#pragma once

#include <memory>

#include "devkit/reference/color/matrix.h"
#include "devkit/reference/gamut_lut.h"
#include "modes/mode_op_params.h"

namespace zelctl {

class GamutBlock {
 public:
  // Throws std::runtime_error for a table of another inner layout.
  explicit GamutBlock(const velaricolor::HwConfigOutputParams& output);

  // Linear light from 0 to 1 to linear light (gamut_lut.h); a block that is disabled or absent
  // lets it pass.
  tarn::color::Vec3 Apply(const tarn::color::Vec3& light) const;

  // Null where light passes.
  const tarn::reference::GamutLut* Table() const { return lut_.get(); }

 private:
  std::unique_ptr<const tarn::reference::GamutLut> lut_;
};

}  // namespace zelctl
