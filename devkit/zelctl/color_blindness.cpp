// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/color_blindness.h"

namespace zelctl {
namespace {

using tarn::color::Mat3;
using tarn::color::Vec3;

// What anomalous viewers see, in linear RGB: Machado, Oliveira and Fernandes,
// "A Physiologically-based Model for Simulation of Color Vision Deficiency"
// (2009), the tables for severity 0.6.
constexpr Mat3 kProtanomaly = {{{0.385450, 0.769005, -0.154455},  //
                                {0.100526, 0.829802, 0.069673},   //
                                {-0.007442, -0.022190, 1.029632}}};
constexpr Mat3 kDeuteranomaly = {{{0.498864, 0.674741, -0.173604},  //
                                  {0.205199, 0.754872, 0.039929},   //
                                  {-0.011131, 0.030969, 0.980162}}};
constexpr Mat3 kTritanomaly = {{{1.104996, -0.046633, -0.058363},  //
                                {-0.032137, 0.971635, 0.060503},   //
                                {0.001336, 0.317922, 0.680742}}};

// Where the lost part goes: Fidaner, Lin and Ozguven, "Analysis of Color
// Blindness" (2005): red's to green and blue; for tritanomaly, likewise, blue's
// to red and green.
constexpr Mat3 kFromRed = {{{0, 0, 0}, {0.7, 1, 0}, {0.7, 0, 1}}};
constexpr Mat3 kFromBlue = {{{1, 0, 0.7}, {0, 1, 0.7}, {0, 0, 0}}};

// colour + shift (colour - seen colour)
Mat3 Correction(const Mat3& seen, const Mat3& shift) {
  Mat3 result = tarn::color::kIdentity;
  for (size_t column = 0; column < 3; ++column) {
    Vec3 lost = {};
    for (size_t row = 0; row < 3; ++row) {
      lost[row] = tarn::color::kIdentity[row][column] - seen[row][column];
    }
    const Vec3 moved = tarn::color::Multiply(shift, lost);
    for (size_t row = 0; row < 3; ++row) result[row][column] += moved[row];
  }
  return result;
}

}  // namespace

Mat3 ProtanomalyCorrection() { return Correction(kProtanomaly, kFromRed); }
Mat3 DeuteranomalyCorrection() { return Correction(kDeuteranomaly, kFromRed); }
Mat3 TritanomalyCorrection() { return Correction(kTritanomaly, kFromBlue); }

}  // namespace zelctl
