// SPDX-License-Identifier: Apache-2.0

// Colours of a wide gamut drawn into a narrower one without their differences
// being lost.
#pragma once

#include <vector>

#include "devkit/reference/color/oklab.h"

namespace tarn::color {

// Draws colours in along lines of constant hue in OKLab that end in a grey: that
// of the lightness of the panel's most colourful colour of the hue. Up to nine
// tenths of the way to the panel's boundary they stay. What the content has from
// there to its own boundary is spread over the rest of the way, to the panel's
// colour that is nearest to the content's last one, so that the hue bends only
// where the panel has too little of it. The knee scaling of CIE 156:2004 (SGCK),
// in OKLab instead of CIECAM97s, with such an end.
class Compressor {
 public:
  // `space` is the panel's; `content` takes its light to light of the content.
  Compressor(const OkLab& space, const Mat3& content);

  // `light`, of the panel, may lie outside 0 to 1; the result doesn't.
  Vec3 operator()(const Vec3& light) const;

 private:
  // The most colourful light of a hue.
  struct Cusp {
    double hue;  // in radians
    double lightness;
  };

  double CuspLightness(double hue) const;

  OkLab space_;
  Mat3 content_;
  std::vector<Cusp> cusps_;  // by hue, from half a turn below 0 to half a turn above
};

}  // namespace tarn::color
