// SPDX-License-Identifier: Apache-2.0

// Transfer functions against figures that the standards print.
#include <gtest/gtest.h>

#include <cmath>

#include "devkit/reference/color/standard_curves.h"

namespace {

using tarn::color::Luminance;

// ITU-R BT.2408, table 1: luminance on a PQ display, or on an HLG one of 1000 cd/m2, and both
// signals, in whole per cent.
TEST(Standards, NominalLevels) {
  const Luminance hlg_display = {.peak = 1000, .black = 0};
  for (const auto& [luminance, pq, hlg] :
       {std::tuple{26.0, 38, 38}, {162, 56, 71}, {179, 57, 73}, {203, 58, 75}}) {
    EXPECT_EQ(std::lround(100 * tarn::color::PqToSignal(luminance)), pq);
    EXPECT_NEAR(tarn::color::PqToLuminance(tarn::color::PqToSignal(luminance)), luminance, 1e-9);
    // Half a per cent of signal to either side.
    EXPECT_LT(tarn::color::HlgToLuminance((hlg - 0.5) / 100, hlg_display), luminance);
    EXPECT_GT(tarn::color::HlgToLuminance((hlg + 0.5) / 100, hlg_display), luminance);
  }
}

TEST(Standards, EndsAndJoints) {
  // ITU-R BT.2100, table 4: 1 stands for 10000 cd/m2; 0 for none.
  EXPECT_NEAR(tarn::color::PqToLuminance(1), 10000, 1e-9);
  EXPECT_EQ(tarn::color::PqToLuminance(0), 0);
  // BT.2100, table 5: scene light of 1/12 is coded as 1/2, 1 as 1.
  EXPECT_NEAR(tarn::color::HlgToScene(0.5), 1.0 / 12, 1e-12);
  EXPECT_NEAR(tarn::color::HlgToScene(0.5 + 1e-9), 1.0 / 12, 1e-8);
  EXPECT_NEAR(tarn::color::HlgToScene(1), 1, 1e-7);
  // BT.2100, table 5: the black level lift makes signal 0 the display's black.
  EXPECT_NEAR(tarn::color::HlgToLuminance(0, {.peak = 812, .black = 0.3}), 0.3, 1e-12);
  // ITU-R BT.2390: system gamma by peak; the last from the formula for an extended range.
  for (const auto& [peak, gamma] : {std::pair{400.0, 1.03},
                                    {600, 1.11},
                                    {800, 1.16},
                                    {1000, 1.20},
                                    {1500, 1.27},
                                    {2000, 1.33},
                                    {4000, 1.48}}) {
    EXPECT_NEAR(tarn::color::HlgSystemGamma(peak), gamma, 5e-3) << peak;
  }
}

// ITU-R BT.2100, table 5: F = peak * Y^(gamma - 1) * E.
TEST(Standards, SystemGammaWorksOnLuminance) {
  const Luminance display = {.peak = 1000, .black = 0};
  const auto component = [&](double signal) {
    return tarn::color::HlgToLuminance(signal, display);
  };
  const auto [red, green, blue] = tarn::color::HlgColor(
      {component(1), component(0), component(0.5)}, 1000, {0.2627, 0.6780, 0.0593});
  const double luminance = 0.2627 + 0.0593 / 12;  // of the scene
  EXPECT_NEAR(red, 1000 * std::pow(luminance, 0.2), 1e-3);
  EXPECT_EQ(green, 0);
  EXPECT_NEAR(blue, 1000 * std::pow(luminance, 0.2) / 12, 1e-3);
}

// ITU-R BT.2390, EETF: the knee leaves what lies below it, the peaks meet.
TEST(Standards, RollOffOfPq) {
  using tarn::color::PqRolledOff;
  using tarn::color::PqToSignal;
  const Luminance content = {.peak = 4000, .black = 0};
  const Luminance display = {.peak = 1000, .black = 0};
  for (const double luminance : {0.0, 1.0, 203.0, 400.0}) {
    EXPECT_NEAR(PqRolledOff(PqToSignal(luminance), content, display), luminance, 1e-9);
  }
  EXPECT_NEAR(PqRolledOff(PqToSignal(4000), content, display), 1000, 1e-6);
  EXPECT_NEAR(PqRolledOff(1, content, display), 1000, 1e-6);
  EXPECT_LT(PqRolledOff(PqToSignal(1000), content, display), 900);
  EXPECT_NEAR(PqRolledOff(0, content, {.peak = 1000, .black = 0.5}), 0.5, 1e-9);
  // A display that shows all of it leaves it.
  EXPECT_NEAR(PqRolledOff(PqToSignal(3000), content, {.peak = 5000, .black = 0}), 3000, 1e-6);
}

}  // namespace
