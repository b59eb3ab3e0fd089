// SPDX-License-Identifier: Apache-2.0

// Colour differences and gamuts against published figures.
#include <gtest/gtest.h>

#include "devkit/colorimetry/ciede2000.h"
#include "devkit/colorimetry/gamut_coverage.h"

namespace {

using namespace tarn::color;  // NOLINT(google-build-using-namespace)

// Sharma, Wu, Dalal, Color Research and Application 30 (2005), table 1.
constexpr struct {
  Lab one;
  Lab other;
  double difference;
} kPublished[] = {
    {{50.0000, 2.6772, -79.7751}, {50.0000, 0.0000, -82.7485}, 2.0425},
    {{50.0000, 3.1571, -77.2803}, {50.0000, 0.0000, -82.7485}, 2.8615},
    {{50.0000, 2.8361, -74.0200}, {50.0000, 0.0000, -82.7485}, 3.4412},
    {{50.0000, -1.3802, -84.2814}, {50.0000, 0.0000, -82.7485}, 1.0000},
    {{50.0000, -1.1848, -84.8006}, {50.0000, 0.0000, -82.7485}, 1.0000},
    {{50.0000, -0.9009, -85.5211}, {50.0000, 0.0000, -82.7485}, 1.0000},
    {{50.0000, 0.0000, 0.0000}, {50.0000, -1.0000, 2.0000}, 2.3669},
    {{50.0000, -1.0000, 2.0000}, {50.0000, 0.0000, 0.0000}, 2.3669},
    {{50.0000, 2.4900, -0.0010}, {50.0000, -2.4900, 0.0009}, 7.1792},
    {{50.0000, 2.4900, -0.0010}, {50.0000, -2.4900, 0.0010}, 7.1792},
    {{50.0000, 2.4900, -0.0010}, {50.0000, -2.4900, 0.0011}, 7.2195},
    {{50.0000, 2.4900, -0.0010}, {50.0000, -2.4900, 0.0012}, 7.2195},
    {{50.0000, -0.0010, 2.4900}, {50.0000, 0.0009, -2.4900}, 4.8045},
    {{50.0000, -0.0010, 2.4900}, {50.0000, 0.0010, -2.4900}, 4.8045},
    {{50.0000, -0.0010, 2.4900}, {50.0000, 0.0011, -2.4900}, 4.7461},
    {{50.0000, 2.5000, 0.0000}, {50.0000, 0.0000, -2.5000}, 4.3065},
    {{50.0000, 2.5000, 0.0000}, {73.0000, 25.0000, -18.0000}, 27.1492},
    {{50.0000, 2.5000, 0.0000}, {61.0000, -5.0000, 29.0000}, 22.8977},
    {{50.0000, 2.5000, 0.0000}, {56.0000, -27.0000, -3.0000}, 31.9030},
    {{50.0000, 2.5000, 0.0000}, {58.0000, 24.0000, 15.0000}, 19.4535},
    {{50.0000, 2.5000, 0.0000}, {50.0000, 3.1736, 0.5854}, 1.0000},
    {{50.0000, 2.5000, 0.0000}, {50.0000, 3.2972, 0.0000}, 1.0000},
    {{50.0000, 2.5000, 0.0000}, {50.0000, 1.8634, 0.5757}, 1.0000},
    {{50.0000, 2.5000, 0.0000}, {50.0000, 3.2592, 0.3350}, 1.0000},
    {{60.2574, -34.0099, 36.2677}, {60.4626, -34.1751, 39.4387}, 1.2644},
    {{63.0109, -31.0961, -5.8663}, {62.8187, -29.7946, -4.0864}, 1.2630},
    {{61.2901, 3.7196, -5.3901}, {61.4292, 2.2480, -4.9620}, 1.8731},
    {{35.0831, -44.1164, 3.7933}, {35.0232, -40.0716, 1.5901}, 1.8645},
    {{22.7233, 20.0904, -46.6940}, {23.0331, 14.9730, -42.5619}, 2.0373},
    {{36.4612, 47.8580, 18.3852}, {36.2715, 50.5065, 21.2231}, 1.4146},
    {{90.8027, -2.0831, 1.4410}, {91.1528, -1.6435, 0.0447}, 1.4441},
    {{90.9257, -0.5406, -0.9208}, {88.6381, -0.8985, -0.7239}, 1.5381},
    {{6.7747, -0.2908, -2.4247}, {5.8714, -0.0985, -2.2286}, 0.6377},
    {{2.0776, 0.0795, -1.1350}, {0.9033, -0.0636, -0.5514}, 0.9082},
};

TEST(Ciede2000, AgreesWithThePublishedPairs) {
  for (const auto& pair : kPublished) {
    // Half a unit of the last printed digit.
    EXPECT_NEAR(Ciede2000(pair.one, pair.other), pair.difference, 0.5e-4) << pair.one.a;
    EXPECT_NEAR(Ciede2000(pair.other, pair.one), pair.difference, 0.5e-4) << pair.one.a;
    EXPECT_EQ(Ciede2000(pair.one, pair.one), 0) << pair.one.a;
  }
}

// Lightness of the 18 % grey card, and D65's own figures as CIE 15 prints them.
TEST(Lab, AgreesWithPublishedFigures) {
  const Vec3 white = {95.047, 100, 108.883};
  EXPECT_NEAR(XyzToLab({17.108, 18, 19.599}, white).l, 49.4961, 1e-3);
  EXPECT_NEAR(XyzToLab({0, 0.5, 0}, white).l, 903.2963 * 0.005, 1e-4) << "the linear part";
  for (const Lab& lab : {Lab{2, 3, -4}, Lab{54, -38, 31}, Lab{96.5, -0.4, 1.2}}) {
    const Lab back = XyzToLab(LabToXyz(lab, white), white);
    EXPECT_NEAR(back.l, lab.l, 1e-9);
    EXPECT_NEAR(back.a, lab.a, 1e-9);
    EXPECT_NEAR(back.b, lab.b, 1e-9);
  }
  const auto d65 = ToUniform(ToChromaticity(white));
  EXPECT_NEAR(d65.u, 0.1978, 5e-5);
  EXPECT_NEAR(d65.v, 0.4683, 5e-5);
}

TEST(GamutCoverage, IsTheShareOfTheTargetsArea) {
  // sRGB lies within either, so that the share is a quotient of areas.
  const Coverage of_p3 = GamutCoverage(kSrgb, kDisplayP3);
  EXPECT_NEAR(of_p3.xy, 0.737171, 1e-6);
  EXPECT_NEAR(of_p3.uniform, 0.796412, 1e-6);
  const Coverage of_bt2020 = GamutCoverage(kSrgb, kBt2020);
  EXPECT_NEAR(of_bt2020.xy, 0.528871, 1e-6);
  EXPECT_NEAR(of_bt2020.uniform, 0.580310, 1e-6);
  EXPECT_NEAR(GamutCoverage(kBt2020, kSrgb).uniform, 1, 1e-12);
  // Worked out by hand: half of the unit triangle's legs, and a triangle apart.
  const Primaries whole = {{0, 0.001}, {0.8, 0.001}, {0, 0.801}, kD65};
  const Primaries half = {{0, 0.001}, {0, 0.401}, {0.4, 0.001}, kD65};  // turns the other way
  const Primaries apart = {{0.5, 0.401}, {0.59, 0.401}, {0.5, 0.5}, kD65};
  EXPECT_NEAR(GamutCoverage(half, whole).xy, 0.25, 1e-12);
  EXPECT_NEAR(GamutCoverage(whole, half).xy, 1, 1e-12);
  EXPECT_EQ(GamutCoverage(half, apart).xy, 0);
}

}  // namespace
