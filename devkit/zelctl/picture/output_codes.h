// SPDX-License-Identifier: Apache-2.0

// The codes of a picture that one channel of GC gives.
#pragma once

#include <bit>
#include <cstdint>
#include <vector>

#include "devkit/zelctl/blocks/gamma_block.h"

namespace zelctl {

// Light falls into cells that are even in its logarithm. A cell whose light is all of one
// code knows it; only for the others, a few of a hundred, is the block computed.
class OutputCodes {
 public:
  // `gc` must outlive this object.
  OutputCodes(const GammaBlock& gc, size_t channel, double max_code);

  // The code nearest to the block's output.
  uint16_t Code(double light) const {
    if (!(light > 0)) return dark_;
    if (light >= 1) return bright_;
    const size_t cell = (std::bit_cast<uint64_t>(light) >> kShift) - kFirst;
    if (cell < cells_.size() && cells_[cell] != kMixed) return static_cast<uint16_t>(cells_[cell]);
    return Computed(light);
  }

 private:
  static constexpr int kMantissaBits = 11;  // of a cell's number; further bits share a cell
  static constexpr int kShift = 52 - kMantissaBits;
  static constexpr double kDarkest = 0x1p-24;  // below, all is computed
  static constexpr uint64_t kFirst = std::bit_cast<uint64_t>(kDarkest) >> kShift;
  static constexpr uint32_t kMixed = UINT32_MAX;

  double Output(double light) const;
  uint16_t Computed(double light) const;
  uint32_t CodeOfCell(double low, double high) const;

  const GammaBlock& gc_;
  const size_t channel_;
  const double max_code_;
  uint16_t dark_ = 0;
  uint16_t bright_ = 0;
  std::vector<uint32_t> cells_;
};

}  // namespace zelctl
