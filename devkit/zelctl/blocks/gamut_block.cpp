// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/blocks/gamut_block.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <stdexcept>

#include "devkit/reference/gamma_lut.h"
#include "devkit/zelctl/blocks/block_record.h"
#include "plugin/names.h"

namespace zelctl {
namespace {

using tarn::color::Vec3;
using tarn::reference::GamutLut;

bool IsUsable(const GamutLut& lut) {
  if (lut.side != tarn::reference::kGamutSide) return false;
  if (lut.axis != tarn::reference::kSquaredAxis) return false;
  if (lut.bit_depth < 1 || lut.bit_depth > tarn::reference::kMaxBitDepth) return false;
  const auto largest = static_cast<uint64_t>(tarn::reference::MaxCode(lut.bit_depth));
  return std::all_of(lut.nodes.begin(), lut.nodes.end(), [largest](const auto& node) {
    return *std::max_element(node.begin(), node.end()) <= largest;
  });
}

}  // namespace

GamutBlock::GamutBlock(const velaricolor::HwConfigOutputParams& output) {
  const auto* record =
      EnabledRecord<velaricolor::GamutPostBlendConfig>(output, velaricolor::kPostBlendGamut);
  if (record == nullptr) return;
  auto lut = std::make_unique<GamutLut>();
  std::memcpy(lut.get(), record->lut_data.data(), sizeof(GamutLut));
  if (!IsUsable(*lut)) {
    throw std::runtime_error(velaricolor::kPostBlendGamut +
                             ": its table is not of the layout in gamut_lut.h");
  }
  max_code_ = tarn::reference::MaxCode(lut->bit_depth);
  nodes_.resize(lut->nodes.size());
  std::transform(lut->nodes.begin(), lut->nodes.end(), nodes_.begin(), [](const auto& node) {
    return Vec3{static_cast<double>(node[0]), static_cast<double>(node[1]),
                static_cast<double>(node[2])};
  });
  lut_ = std::move(lut);
}

Vec3 GamutBlock::Apply(const Vec3& light) const {
  if (lut_ == nullptr) return light;
  return Apply(std::array{PlaceOf(light[0]), PlaceOf(light[1]), PlaceOf(light[2])});
}

Vec3 GamutBlock::Apply(const std::array<GridPlace, 3>& places) const {
  Vec3 codes =
      InterpolateTetrahedral(places, [this](size_t red, size_t green, size_t blue) -> const Vec3& {
        return nodes_[tarn::reference::NodeIndex(red, green, blue)];
      });
  for (double& code : codes) code /= max_code_;
  return codes;
}

GridPlace GamutBlock::PlaceOf(double light) {
  using tarn::reference::NodeLight;
  constexpr size_t kLast = tarn::reference::kGamutSide - 1;
  const double clipped = std::clamp(light, 0.0, 1.0);
  const auto node = std::min(static_cast<size_t>(std::sqrt(clipped) * kLast), kLast - 1);
  const double low = NodeLight(node);
  const double share = (clipped - low) / (NodeLight(node + 1) - low);
  return {node, std::clamp(share, 0.0, 1.0)};
}

}  // namespace zelctl
