// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/report/panel_light.h"

#include <cmath>

#include "devkit/reference/gamma_lut.h"

namespace zelctl {

using tarn::color::Vec3;
using tarn::reference::Panel;

Vec3 LightToXyz(const Panel& panel, const Vec3& light) {
  Vec3 luminance;
  for (size_t i = 0; i < 3; ++i) {
    luminance[i] =
        panel.luminance.black + (panel.luminance.peak - panel.luminance.black) * light[i];
  }
  return tarn::color::Multiply(RgbToXyz(panel.primaries), luminance);
}

Vec3 Emitted(const Panel& panel, const Vec3& signal) {
  Vec3 light;
  for (size_t i = 0; i < 3; ++i) light[i] = ToLight(panel.transfer, panel.luminance, i, signal[i]);
  return LightToXyz(panel, light);
}

Vec3 Quantized(const Vec3& signal, uint32_t bits) {
  const double largest = tarn::reference::MaxCode(bits);
  Vec3 result;
  for (size_t i = 0; i < 3; ++i) result[i] = std::round(largest * signal[i]) / largest;
  return result;
}

}  // namespace zelctl
