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

// Where a component lies on its axis: between two nodes, and how far from the lower.
struct Place {
  size_t node = 0;
  double share = 0;
};

Place PlaceOf(double light) {
  using tarn::reference::NodeLight;
  constexpr size_t kLast = tarn::reference::kGamutSide - 1;
  const double clipped = std::clamp(light, 0.0, 1.0);
  const auto node = std::min(static_cast<size_t>(std::sqrt(clipped) * kLast), kLast - 1);
  const double low = NodeLight(node);
  const double share = (clipped - low) / (NodeLight(node + 1) - low);
  return {node, std::clamp(share, 0.0, 1.0)};
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
  const std::array<Place, 3> places = {PlaceOf(light[0]), PlaceOf(light[1]), PlaceOf(light[2])};
  // From the cell's dark corner to its bright one along its edges, the largest share first.
  std::array<size_t, 3> order = {0, 1, 2};
  std::stable_sort(order.begin(), order.end(),
                   [&](size_t a, size_t b) { return places[a].share > places[b].share; });
  std::array<size_t, 3> node = {places[0].node, places[1].node, places[2].node};
  Vec3 codes = {};
  double before = 1;
  for (size_t step = 0; step <= 3; ++step) {
    const double share = step < 3 ? places[order[step]].share : 0;
    const auto& corner = lut_->nodes[tarn::reference::NodeIndex(node[0], node[1], node[2])];
    for (size_t i = 0; i < 3; ++i) codes[i] += (before - share) * static_cast<double>(corner[i]);
    if (step < 3) ++node[order[step]];
    before = share;
  }
  for (double& code : codes) code /= tarn::reference::MaxCode(lut_->bit_depth);
  return codes;
}

}  // namespace zelctl
