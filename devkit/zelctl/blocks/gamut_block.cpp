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
  lut_ = std::move(lut);
}

Vec3 GamutBlock::Apply(const Vec3& light) const {
  if (lut_ == nullptr) return light;
  constexpr size_t kLast = tarn::reference::kGamutSide - 1;
  std::array<size_t, 3> cell;  // its corner nearest to black
  Vec3 share;                  // of the far corner, along each axis
  for (size_t i = 0; i < 3; ++i) {
    const double position = std::clamp(light[i], 0.0, 1.0) * kLast;
    cell[i] = std::min(static_cast<size_t>(position), kLast - 1);
    share[i] = position - static_cast<double>(cell[i]);
  }
  Vec3 codes = {};
  for (size_t corner = 0; corner < 8; ++corner) {
    const std::array<size_t, 3> far = {corner >> 2, corner >> 1 & 1, corner & 1};
    double weight = 1;
    for (size_t i = 0; i < 3; ++i) weight *= far[i] == 1 ? share[i] : 1 - share[i];
    const auto& node = lut_->nodes[tarn::reference::NodeIndex(cell[0] + far[0], cell[1] + far[1],
                                                              cell[2] + far[2])];
    for (size_t i = 0; i < 3; ++i) codes[i] += weight * static_cast<double>(node[i]);
  }
  for (double& code : codes) code /= tarn::reference::MaxCode(lut_->bit_depth);
  return codes;
}

}  // namespace zelctl
