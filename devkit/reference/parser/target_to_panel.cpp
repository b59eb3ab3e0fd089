// SPDX-License-Identifier: Apache-2.0
#include "devkit/reference/parser/target_to_panel.h"

namespace tarn::reference {

using color::Curve;
using color::Vec3;

Vec3 LightConversion::operator()(const Vec3& light) const {
  Vec3 result = color::Multiply(matrix, light);
  for (size_t i = 0; i < 3; ++i) result[i] += offset[i];
  return result;
}

LightConversion TargetToPanel(const Panel& panel, const Target& target) {
  const color::Mat3 matrix = ConversionMatrix(target.primaries, panel.primaries, target.adaptation);
  LightConversion conversion = {matrix, {0, 0, 0}};
  const Curve curve = target.transfer.curve;
  if (target.adaptation || (curve != Curve::kHlg && curve != Curve::kSt2084)) return conversion;
  // A channel of light x has black + x * range. The panel's black is there of
  // itself: of matrix * (black + x * range), range * light is left to be made.
  const auto& [peak, black] = panel.luminance;
  const Vec3 white = color::Multiply(matrix, Vec3{1, 1, 1});
  for (size_t i = 0; i < 3; ++i) {
    conversion.offset[i] = black / (peak - black) * (white[i] - 1);
  }
  return conversion;
}

LightConversion Inverse(const LightConversion& conversion) {
  const color::Mat3 matrix = color::Inverse(conversion.matrix);
  Vec3 offset = color::Multiply(matrix, conversion.offset);
  for (double& component : offset) component = -component;
  return {matrix, offset};
}

}  // namespace tarn::reference
