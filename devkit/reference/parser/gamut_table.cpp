// SPDX-License-Identifier: Apache-2.0
#include "devkit/reference/parser/gamut_table.h"

#include <algorithm>
#include <cstring>

#include "convert/gamut_gamma_config.h"
#include "devkit/reference/color/compressed_color.h"
#include "devkit/reference/color/nearest_color.h"
#include "devkit/reference/gamma_lut.h"
#include "devkit/reference/gamut_lut.h"
#include "devkit/reference/panel/read_blocks.h"
#include "devkit/reference/parser/target_to_panel.h"
#include "plugin/names.h"

namespace tarn::reference {
namespace {

using color::Vec3;

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

Vec3 Clipped(Vec3 light) {
  for (double& component : light) component = std::clamp(component, 0.0, 1.0);
  return light;
}

// Maps linear light of the target to light of the target that the panel has.
class GamutMapper {
 public:
  GamutMapper(const Panel& panel, const Target& target)
      : panel_(panel),
        target_(target),
        to_panel_(TargetToPanel(panel, target)),
        from_panel_(Inverse(to_panel_)),
        panel_weights_(LuminanceWeights(panel.primaries)),
        target_weights_(LuminanceWeights(target.primaries)),
        space_(panel.primaries),
        compress_(space_, from_panel_.matrix) {}

  Vec3 operator()(Vec3 light) const {
    if (target_.transfer.curve == color::Curve::kHlg) light = WithSystemGamma(light);
    if (target_.gamut_mapping == GamutMapping::kNone) return Clipped(light);
    const Vec3 on_panel = to_panel_(light);
    const Vec3 mapped = Mapped(on_panel);
    if (mapped == on_panel) return Clipped(light);
    return Clipped(from_panel_(KeepExcess(on_panel, mapped)));
  }

 private:
  Vec3 WithSystemGamma(const Vec3& light) const {
    const auto& [peak, black] = panel_.luminance;
    Vec3 luminance;
    for (size_t i = 0; i < 3; ++i) luminance[i] = black + light[i] * (peak - black);
    luminance = color::HlgColor(luminance, peak, target_weights_);
    for (double& component : luminance) component = (component - black) / (peak - black);
    return luminance;
  }

  Vec3 Mapped(const Vec3& on_panel) const {
    if (target_.gamut_mapping == GamutMapping::kCompress) return compress_(on_panel);
    if (Clipped(on_panel) == on_panel) return on_panel;
    if (target_.gamut_mapping == GamutMapping::kNearest) {
      return color::NearestColor(space_, on_panel);
    }
    return Desaturate(on_panel, panel_weights_);
  }

  // Where the mapping ends at a bound that `color` lies beyond, clipping after
  // the PCC block ends there too. So the node can keep what is beyond it, and
  // the colours between it and the panel's own stay where they are.
  static Vec3 KeepExcess(const Vec3& color, Vec3 mapped) {
    for (size_t i = 0; i < 3; ++i) {
      if (Clipped(color)[i] == mapped[i]) mapped[i] = color[i];
    }
    return mapped;
  }

  const Panel& panel_;
  const Target& target_;
  LightConversion to_panel_;
  LightConversion from_panel_;
  Vec3 panel_weights_;
  Vec3 target_weights_;
  color::OkLab space_;
  color::Compressor compress_;
};

}  // namespace

HwConfigPayload GamutBlock(const Panel& panel, const Target& target,
                           const zeltarn::TableDimensions& size) {
  const GamutMapper map(panel, target);
  auto lut = std::make_unique<GamutLut>();
  lut->bit_depth = size.bit_depth;
  for (size_t red = 0; red < kGamutSide; ++red) {
    for (size_t green = 0; green < kGamutSide; ++green) {
      for (size_t blue = 0; blue < kGamutSide; ++blue) {
        const Vec3 mapped = map({NodeLight(red), NodeLight(green), NodeLight(blue)});
        auto& node = lut->nodes[NodeIndex(red, green, blue)];
        for (size_t i = 0; i < 3; ++i) node[i] = ToCode(mapped[i], size.bit_depth);
      }
    }
  }
  auto record = std::make_shared<GamutPostBlendConfig>();
  record->enable =
      target.gamut_mapping != GamutMapping::kNone || target.transfer.curve == color::Curve::kHlg;
  std::memcpy(record->lut_data.data(), lut.get(), sizeof(GamutLut));
  return MakeBlock(velaricolor::kPostBlendGamut, std::move(record));
}

}  // namespace tarn::reference
