// SPDX-License-Identifier: Apache-2.0

// The gamut block as a function.
#pragma once

#include <array>
#include <memory>
#include <vector>

#include "devkit/reference/color/matrix.h"
#include "devkit/reference/gamut_lut.h"
#include "devkit/zelctl/blocks/tetrahedral.h"
#include "modes/mode_op_params.h"

namespace zelctl {

class GamutBlock {
 public:
  // Throws std::runtime_error for a table of another inner layout.
  explicit GamutBlock(const velaricolor::HwConfigOutputParams& output);

  // Linear light from 0 to 1 to linear light (gamut_lut.h); a block that is disabled or absent
  // lets it pass.
  tarn::color::Vec3 Apply(const tarn::color::Vec3& light) const;

  // The same of a colour whose places in the table are known. There must be a table.
  tarn::color::Vec3 Apply(const std::array<GridPlace, 3>& places) const;

  // Where light lies on an axis of the table.
  static GridPlace PlaceOf(double light);

  // Null where light passes.
  const tarn::reference::GamutLut* Table() const { return lut_.get(); }

 private:
  std::unique_ptr<const tarn::reference::GamutLut> lut_;
  double max_code_ = 1;
  std::vector<tarn::color::Vec3> nodes_;  // the table's, as numbers that are quick to mix
};

}  // namespace zelctl
