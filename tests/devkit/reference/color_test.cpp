// Colour maths against the figures that the standards print.
#include <gtest/gtest.h>

#include <cmath>

#include "devkit/reference/color/primaries.h"
#include "devkit/reference/color/transfer_function.h"

namespace tarn::color {
namespace {

TEST(Primaries, MatricesAreThePublishedOnes) {
  const Mat3 srgb_to_bt2020 = {
      {{0.6274, 0.3293, 0.0433}, {0.0691, 0.9195, 0.0114}, {0.0164, 0.0880, 0.8956}}};
  struct Case {
    const char* source;
    Mat3 found;
    Mat3 printed;
    double tolerance = 1e-4;
  };
  for (const Case& c : {
           Case{"IEC 61966-2-1, 5.2",
                RgbToXyz(kSrgb),
                {{{0.4124, 0.3576, 0.1805}, {0.2126, 0.7152, 0.0722}, {0.0193, 0.1192, 0.9505}}}},
           {"SMPTE EG 432-1, annex: P3 with D65 white",
            RgbToXyz(kDisplayP3),
            {{{0.4866, 0.2657, 0.1982}, {0.2290, 0.6917, 0.0793}, {0.0000, 0.0451, 1.0439}}}},
           {"SMPTE RP 431-2, annex: P3 with its own white",
            RgbToXyz(kDciP3),
            {{{0.4452, 0.2771, 0.1723}, {0.2095, 0.7216, 0.0689}, {0.0000, 0.0471, 0.9074}}}},
           // ICC.1's D50 and D65 have more digits than the video standards' chromaticities.
           {"ICC.1, Bradford from D65 to D50",
            BradfordAdaptation(kD65, kD50),
            {{{1.0478, 0.0229, -0.0501}, {0.0295, 0.9905, -0.0170}, {-0.0092, 0.0150, 0.7521}}},
            1e-3},
           {"ITU-R BT.2087, M2", ConversionMatrix(kSrgb, kBt2020, true), srgb_to_bt2020},
           {"ITU-R BT.2087, M2", ConversionMatrix(kSrgb, kBt2020, false), srgb_to_bt2020},
       }) {
    for (size_t i = 0; i < 9; ++i) {
      EXPECT_NEAR(c.found[i / 3][i % 3], c.printed[i / 3][i % 3], c.tolerance) << c.source << i;
    }
  }
  const Vec3 weights = LuminanceWeights(kBt2020);
  const Vec3 printed = {0.2627, 0.6780, 0.0593};  // ITU-R BT.2020, table 4
  for (size_t i = 0; i < 3; ++i) EXPECT_NEAR(weights[i], printed[i], 1e-4);
}

TEST(Primaries, WhiteOfAConversion) {
  const Vec3 adapted = Multiply(ConversionMatrix(kDciP3, kSrgb, true), Vec3{1, 1, 1});
  const Vec3 absolute = Multiply(ConversionMatrix(kDciP3, kSrgb, false), Vec3{1, 1, 1});
  for (const double component : adapted) EXPECT_NEAR(component, 1, 1e-12);
  for (const bool adaptation : {false, true}) {
    EXPECT_EQ(ConversionMatrix(kDciP3, kDciP3, adaptation), kIdentity);
  }
  // The greener white stays greener, and none of its components exceeds 1.
  EXPECT_NEAR(absolute[1], 1, 1e-12);
  EXPECT_LT(absolute[0], 0.97);
  EXPECT_LT(absolute[2], 0.92);
  const Vec3 xyz = Multiply(RgbToXyz(kSrgb), absolute);
  const double sum = xyz[0] + xyz[1] + xyz[2];
  EXPECT_NEAR(xyz[0] / sum, kDciWhite.x, 1e-12);
  EXPECT_NEAR(xyz[1] / sum, kDciWhite.y, 1e-12);
}

TEST(StandardCurves, PrintedPoints) {
  struct Point {
    const char* what;
    double found;
    double expected;
    double tolerance;
  };
  const Luminance reference = {1000, 0};
  for (const Point& point : {
           Point{"PQ black, ST 2084", PqToLuminance(0), 0, 0},
           {"PQ peak, ST 2084", PqToLuminance(1), 10000, 1e-9},
           {"PQ 100 cd/m2, ST 2084", PqToLuminance(0.508078), 100, 0.001},
           // Printed as 58 % and 38 %; the further digits are the formula's in 50-digit arithmetic.
           {"PQ white, BT.2408 table 1", PqToLuminance(0.580689), 203, 0.001},
           {"PQ grey, BT.2408 table 1", PqToLuminance(0.380032), 26, 0.0002},
           {"HLG where the segments meet, BT.2100", HlgToScene(0.5), 1.0 / 12, 1e-12},
           {"HLG just above, BT.2100", HlgToScene(0.5 + 1e-9), 1.0 / 12, 1e-8},
           {"HLG peak, BT.2100", HlgToScene(1), 1, 1e-7},
           {"HLG 75 %, BT.2408 table 1", HlgToLuminance(0.75, reference), 203, 0.5},
           {"HLG 38 %, BT.2408 table 1", HlgToLuminance(0.38, reference), 26, 0.5},
           {"HLG gamma at 1000 cd/m2, BT.2100", HlgSystemGamma(1000), 1.2, 1e-12},
           {"HLG gamma at 2000 cd/m2, BT.2390", HlgSystemGamma(2000), 1.33, 5e-3},
           {"HLG gamma at 4000 cd/m2, BT.2390", HlgSystemGamma(4000), 1.48, 5e-3},
           {"HLG black on a display with black", HlgToLuminance(0, {1000, 0.5}), 0.5, 1e-9},
           {"BT.1886 black", Bt1886ToLuminance(0, {100, 0.1}), 0.1, 1e-12},
           {"BT.1886 peak", Bt1886ToLuminance(1, {100, 0.1}), 100, 1e-9},
           {"BT.1886 without black is gamma 2.4", Bt1886ToLuminance(0.5, {1, 0}), 0.189465, 1e-6},
           {"sRGB mid grey, IEC 61966-2-1", SrgbToLight(118 / 255.0), 0.181164, 1e-6},
           {"sRGB linear part", SrgbToLight(0.04), 0.04 / 12.92, 1e-12},
       }) {
    EXPECT_NEAR(point.found, point.expected, point.tolerance) << point.what;
  }
}

TEST(TransferFunction, RelativeCurvesInvert) {
  const Luminance panel = {500, 0.1};
  const TransferFunction functions[] = {
      {.curve = Curve::kLinear, .gamma = 1, .ramp = {}},
      {.curve = Curve::kGamma, .gamma = 2.2, .ramp = {}},
      {.curve = Curve::kSrgb, .gamma = 1, .ramp = {}},
      {.curve = Curve::kRamp, .gamma = 1, .ramp = {{0, 0}, {0.2, 0.01}, {0.7, 0.6}, {1, 1}}},
  };
  for (const TransferFunction& function : functions) {
    double previous = -1;
    for (int i = 0; i <= 1000; ++i) {
      const double light = ToLight(function, panel, i / 1000.0);
      EXPECT_GT(light, previous);
      EXPECT_NEAR(ToSignal(function, light), i / 1000.0, 1e-7);
      previous = light;
    }
    EXPECT_DOUBLE_EQ(previous, 1);
  }
}

TEST(TransferFunction, HdrCurvesAreRelativeToThePanelsRange) {
  const Luminance panel = {600, 0.5};
  const TransferFunction pq = {.curve = Curve::kSt2084, .gamma = 1, .ramp = {}};
  const TransferFunction hlg = {.curve = Curve::kHlg, .gamma = 1, .ramp = {}};
  EXPECT_EQ(ToLight(pq, panel, 0), 0);
  EXPECT_NEAR(ToLight(pq, panel, 0.508078), (100 - 0.5) / (600 - 0.5), 1e-5);
  EXPECT_EQ(ToLight(pq, panel, 0.9), 1) << "above the panel's peak";
  // Also on the brightest and least contrasty panel that can be described.
  for (const Luminance& display : {panel, Luminance{10000, 100}}) {
    EXPECT_NEAR(ToLight(hlg, display, 0), 0, 1e-12);
    EXPECT_NEAR(ToLight(hlg, display, 1), 1, 1e-6);
  }
}

}  // namespace
}  // namespace tarn::color
