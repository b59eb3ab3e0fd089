// The named colour transforms, as the plug-in gets them.
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <sstream>
#include <string>

#include "tests/devkit/zelctl/run_zelctl.h"

namespace {

using Matrix = std::array<double, 16>;

Matrix Sent(const std::string& name) {
  const ZelctlRun run = RunWithFake("render 0 --color-transform " + name);
  const std::string prefix = "set 5 len 68:";
  std::istringstream numbers(run.err.substr(run.err.find(prefix) + prefix.size()));
  Matrix matrix = {};
  for (double& element : matrix) numbers >> element;
  EXPECT_TRUE(numbers) << run.err;
  return matrix;
}

void ExpectNear(const std::string& name, const Matrix& expected, double tolerance) {
  const Matrix sent = Sent(name);
  for (size_t i = 0; i < sent.size(); ++i) {
    EXPECT_NEAR(sent[i], expected[i], tolerance) << name << " element " << i;
  }
}

TEST(ColorTransform, ExactOnes) {
  ExpectNear("identity", {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}, 0);
  ExpectNear("inversion", {-1, 0, 0, 0, 0, -1, 0, 0, 0, 0, -1, 0, 1, 1, 1, 1}, 0);
  ExpectNear(
      "grayscale",
      {0.2126, 0.2126, 0.2126, 0, 0.7152, 0.7152, 0.7152, 0, 0.0722, 0.0722, 0.0722, 0, 0, 0, 0, 1},
      1e-6);
}

// Expected gains: Planck's law integrated over the CIE 1931 observer, in linear
// sRGB, over the same of 6504 K; the program uses splines of the locus.
TEST(ColorTransform, NightLightFollowsTheBlackBody) {
  const struct {
    const char* name;
    std::array<double, 3> gains;
  } cases[] = {
      {"night:1800", {1, 0.2313, 0}},      {"night:2700", {1, 0.4478, 0.1002}},
      {"night:3400", {1, 0.5917, 0.2395}}, {"night:5000", {1, 0.8419, 0.6337}},
      {"night:6504", {1, 1, 1}},           {"night:10000", {0.6064, 0.7311, 1}},
  };
  for (const auto& test : cases) {
    const auto [r, g, b] = test.gains;
    ExpectNear(test.name, {r, 0, 0, 0, 0, g, 0, 0, 0, 0, b, 0, 0, 0, 0, 1}, 0.02);
  }
}

TEST(ColorTransform, ColorBlindnessCorrections) {
  const struct {
    const char* name;
    size_t kept;                  // the channel that passes unchanged
    std::array<double, 3> moved;  // where the channel that is lost goes
  } cases[] = {
      {"protanomaly", 0, {1, 0.329659, 0.437627}},
      {"deuteranomaly", 0, {1, 0.145596, 0.361926}},
      {"tritanomaly", 2, {0.281844, 0.162978, 1}},
  };
  for (const auto& test : cases) {
    const Matrix sent = Sent(test.name);
    for (size_t row = 0; row < 3; ++row) {
      EXPECT_NEAR(sent[row] + sent[4 + row] + sent[8 + row], 1, 1e-5) << "greys stay";
      EXPECT_NEAR(sent[4 * row + test.kept], row == test.kept ? 1 : 0, 1e-6) << test.name;
      EXPECT_NEAR(sent[4 * test.kept + row], test.moved[row], 1e-5) << test.name;
      EXPECT_EQ(sent[12 + row], 0);
    }
  }
}

}  // namespace
