// SPDX-License-Identifier: Apache-2.0

// A mode's whole chain as one 3D table, and what that costs.
#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "devkit/zelctl/blocks/block_pipeline.h"

namespace zelctl {

// Nodes are evenly spaced in the signal.
class CubeTable {
 public:
  // `side` nodes per channel, at least 2.
  CubeTable(const BlockPipeline& pipeline, size_t side);

  // Red varies fastest.
  const std::vector<std::array<float, 3>>& Nodes() const { return nodes_; }

  // What a program that reads the table makes of a signal from 0 to 1.
  tarn::color::Vec3 Tetrahedral(const tarn::color::Vec3& signal) const;
  tarn::color::Vec3 Trilinear(const tarn::color::Vec3& signal) const;

 private:
  const std::array<float, 3>& At(size_t red, size_t green, size_t blue) const {
    return nodes_[(blue * side_ + green) * side_ + red];
  }

  size_t side_;
  std::vector<std::array<float, 3>> nodes_;
};

// Difference from the chain itself, in codes of 8 bits, not rounded: largest of all
// channels and colours, and their mean.
struct SamplingError {
  double largest = 0;
  double mean = 0;
};

struct SamplingErrors {
  SamplingError tetrahedral;
  SamplingError trilinear;
  size_t colors = 0;  // over how many
};

// Over the 256 neutral colours of 8 bits and those whose codes are among SampledCodes().
SamplingErrors MeasureSampling(const BlockPipeline& pipeline, const CubeTable& table);

// 0 to 8, where curves bend most, then 10, 13, 14, 16, 19, ... 255: steps of 1, 2 and 3 in turn,
// so that no even spacing of nodes meets them all.
std::vector<int> SampledCodes();

}  // namespace zelctl
