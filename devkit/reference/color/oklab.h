// SPDX-License-Identifier: Apache-2.0

// OKLab, a space in which colours of one hue lie on one line from grey.
//
// B. Ottosson, A perceptual color space for image processing, 2020. Its white
// is D65; light seen under another white is adapted to it.
#pragma once

#include "devkit/reference/color/primaries.h"

namespace tarn::color {

// Linear light of a device, whose white has L = 1, to OKLab and back.
class OkLab {
 public:
  explicit OkLab(const Primaries& device);

  // L, a and b. Light may lie outside 0 to 1.
  Vec3 FromLight(const Vec3& light) const;
  Vec3 ToLight(const Vec3& lab) const;

  // Change of L, a and b with each component of `light`, one column per component.
  Mat3 Slope(const Vec3& light) const;

 private:
  Mat3 to_lms_;
  Mat3 from_lms_;
};

}  // namespace tarn::color
