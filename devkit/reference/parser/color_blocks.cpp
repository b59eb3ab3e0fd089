#include "devkit/reference/parser/color_blocks.h"

#include <algorithm>
#include <cstring>

#include "convert/gamut_gamma_config.h"
#include "devkit/reference/gamma_lut.h"
#include "devkit/reference/gamut_lut.h"
#include "devkit/reference/panel/read_blocks.h"
#include "pcc/pcc_config.h"
#include "plugin/names.h"

namespace tarn::reference {
namespace {

using color::Mat3;
using color::Vec3;

Mat3 TargetToPanel(const Panel& panel, const Target& target) {
  return ConversionMatrix(target.primaries, panel.primaries, target.adaptation);
}

// The three channels' tables hold the codes of `curve` along `axis`.
template <typename Curve>
std::shared_ptr<GammaPostBlendConfig> GammaTable(GammaAxis axis,
                                                 const zeltarn::TableDimensions& size,
                                                 Curve curve) {
  auto record = std::make_shared<GammaPostBlendConfig>(size.num_of_entries);
  record->enable = true;
  for (size_t i = 0; i < size.num_of_entries; ++i) {
    record->c0.push_back(ToCode(curve(AxisInput(axis, i, size.num_of_entries)), size.bit_depth));
  }
  record->c1 = record->c0;
  record->c2 = record->c0;
  return record;
}

// Draws a colour of the panel's linear light towards the grey of the same
// luminance, as far as it takes to reach the range from 0 to 1.
Vec3 Desaturate(const Vec3& color, const Vec3& luminance_weights) {
  double grey = 0;
  for (size_t i = 0; i < 3; ++i) grey += luminance_weights[i] * color[i];
  grey = std::clamp(grey, 0.0, 1.0);
  double share = 1;
  for (const double component : color) {
    if (component > 1) share = std::min(share, (1 - grey) / (component - grey));
    if (component < 0) share = std::min(share, grey / (grey - component));
  }
  Vec3 drawn;
  for (size_t i = 0; i < 3; ++i) drawn[i] = grey + share * (color[i] - grey);
  return drawn;
}

// Maps linear light of the target to light of the target that the panel has.
class GamutMapper {
 public:
  GamutMapper(const Panel& panel, const Target& target)
      : to_panel_(TargetToPanel(panel, target)),
        from_panel_(color::Inverse(to_panel_)),
        luminance_weights_(LuminanceWeights(panel.primaries)),
        mapping_(target.gamut_mapping) {}

  Vec3 operator()(const Vec3& color) const {
    const Vec3 on_panel = color::Multiply(to_panel_, color);
    const bool fits =
        std::all_of(on_panel.begin(), on_panel.end(), [](double c) { return c >= 0 && c <= 1; });
    if (fits || mapping_ == GamutMapping::kNone) return color;
    Vec3 mapped = color::Multiply(from_panel_, Desaturate(on_panel, luminance_weights_));
    for (double& component : mapped) component = std::clamp(component, 0.0, 1.0);
    return mapped;
  }

 private:
  Mat3 to_panel_;
  Mat3 from_panel_;
  Vec3 luminance_weights_;
  GamutMapping mapping_;
};

}  // namespace

HwConfigPayload GamutBlock(const Panel& panel, const Target& target,
                           const zeltarn::TableDimensions& size) {
  const GamutMapper map(panel, target);
  auto lut = std::make_unique<GamutLut>();
  lut->bit_depth = size.bit_depth;
  constexpr double kLast = kGamutSide - 1;
  for (size_t red = 0; red < kGamutSide; ++red) {
    for (size_t green = 0; green < kGamutSide; ++green) {
      for (size_t blue = 0; blue < kGamutSide; ++blue) {
        const Vec3 mapped =
            map({static_cast<double>(red) / kLast, static_cast<double>(green) / kLast,
                 static_cast<double>(blue) / kLast});
        auto& node = lut->nodes[NodeIndex(red, green, blue)];
        for (size_t i = 0; i < 3; ++i) node[i] = ToCode(mapped[i], size.bit_depth);
      }
    }
  }
  auto record = std::make_shared<GamutPostBlendConfig>();
  record->enable = target.gamut_mapping != GamutMapping::kNone;
  std::memcpy(record->lut_data.data(), lut.get(), sizeof(GamutLut));
  return MakeBlock(velaricolor::kPostBlendGamut, std::move(record));
}

HwConfigPayload IgcBlock(const Panel& panel, const Target& target,
                         const zeltarn::TableDimensions& size) {
  const auto curve = [&](double signal) {
    return ToLight(target.transfer, panel.luminance, signal);
  };
  return MakeBlock(velaricolor::kPostBlendIGC, GammaTable(GammaAxis::kIgc, size, curve));
}

HwConfigPayload GcBlock(const Panel& panel, const zeltarn::TableDimensions& size) {
  const auto curve = [&](double light) { return ToSignal(panel.transfer, light); };
  return MakeBlock(velaricolor::kPostBlendGC, GammaTable(GammaAxis::kGc, size, curve));
}

HwConfigPayload PccBlock(const Panel& panel, const Target& target) {
  const Mat3 matrix = TargetToPanel(panel, target);
  auto record = std::make_shared<PccPostBlendConfig>();
  record->enable = true;
  const auto place = [](const Vec3& row, zeltarn::PccRow* terms) {
    std::copy(row.begin(), row.end(), terms->begin() + 1);
  };
  place(matrix[0], &record->coeffs.r);
  place(matrix[1], &record->coeffs.g);
  place(matrix[2], &record->coeffs.b);
  return MakeBlock(velaricolor::kPostBlendPCC, std::move(record));
}

}  // namespace tarn::reference
