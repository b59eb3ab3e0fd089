// SPDX-License-Identifier: Apache-2.0

// An IGC or GC block as a function.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "devkit/reference/color/matrix.h"
#include "devkit/reference/gamma_lut.h"
#include "modes/mode_op_params.h"

namespace zelctl {

class GammaBlock {
 public:
  // The block of `axis` in `output`. The depth of its codes is the one that the
  // host set: the record doesn't state it. Throws std::runtime_error for tables
  // that no value can be looked up in.
  GammaBlock(tarn::reference::GammaAxis axis, uint32_t bit_depth,
             const velaricolor::HwConfigOutputParams& output);

  // Output of the three channels, from 0 to 1; the input is clipped to that range.
  // A block that is disabled or absent lets it pass.
  tarn::color::Vec3 Apply(const tarn::color::Vec3& input) const;

  // The same of one channel.
  double ApplyTo(size_t channel, double input) const;

  tarn::reference::GammaAxis Axis() const { return axis_; }
  uint32_t BitDepth() const { return bit_depth_; }
  bool Passes() const { return tables_[0].empty(); }
  const std::array<std::vector<uint32_t>, 3>& Tables() const { return tables_; }

 private:
  tarn::reference::GammaAxis axis_;
  uint32_t bit_depth_;
  std::array<std::vector<uint32_t>, 3> tables_;  // empty where values pass
};

}  // namespace zelctl
