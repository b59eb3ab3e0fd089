// SPDX-License-Identifier: Apache-2.0

// The blocks as a function of a picture's samples.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "devkit/zelctl/blocks/block_pipeline.h"
#include "devkit/zelctl/picture/output_codes.h"

namespace zelctl {

// Gives the codes that BlockPipeline::Apply, rounded, gives. What depends on one sample
// alone is worked out once.
class PixelTransform {
 public:
  // For samples of 8 or 16 bits. `pipeline` must outlive this object.
  PixelTransform(const BlockPipeline& pipeline, uint32_t bit_depth);

  // Rewrites pixels of `channels` samples each, of which the first three are red, green
  // and blue. From any thread. Throws std::runtime_error where the PCC block gives no
  // number.
  void Apply(size_t channels, std::span<uint8_t> samples) const;
  void Apply(size_t channels, std::span<uint16_t> samples) const;

 private:
  template <typename Sample>
  void ApplyToAll(size_t channels, std::span<Sample> samples) const;
  template <typename Sample>
  tarn::color::Vec3 Light(const Sample* pixel) const;
  tarn::color::Vec3 Shown(const tarn::color::Vec3& light) const;

  const BlockPipeline& pipeline_;
  bool affine_ = false;  // the PCC block has no terms of higher order
  // After IGC, for each sample of each channel: its light, or its place in the gamut table.
  std::array<std::vector<double>, 3> light_;
  std::array<std::vector<GridPlace>, 3> places_;
  std::array<OutputCodes, 3> codes_;
};

}  // namespace zelctl
